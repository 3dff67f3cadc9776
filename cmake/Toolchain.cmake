# The compiler on Linux: clang 19 (g++ cannot compile Objective-C++ of this kind). On macOS Xcode's own is used.
if(NOT CMAKE_HOST_APPLE)
    find_program(QV_CLANG NAMES clang-19 clang REQUIRED)
    find_program(QV_CLANGXX NAMES clang++-19 clang++ REQUIRED)
    set(CMAKE_C_COMPILER ${QV_CLANG})
    set(CMAKE_CXX_COMPILER ${QV_CLANGXX})
    set(CMAKE_OBJC_COMPILER ${QV_CLANG})
    set(CMAKE_OBJCXX_COMPILER ${QV_CLANGXX})
endif()
