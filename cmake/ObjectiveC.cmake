# qv_objc: what every Objective-C++ source needs (language options, AppKit), whichever AppKit it is.
add_library(qv_objc INTERFACE)
if(APPLE)
    target_compile_options(qv_objc INTERFACE -fno-objc-arc -fblocks)
    target_link_libraries(qv_objc INTERFACE "-framework AppKit" "-framework Foundation" "-framework QuartzCore")
    return()
endif()

find_program(GNUSTEP_CONFIG gnustep-config REQUIRED)
function(qv_gnustep_variable name result)
    execute_process(COMMAND ${GNUSTEP_CONFIG} --variable=${name} OUTPUT_VARIABLE value OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(${result} ${value} PARENT_SCOPE)
endfunction()
qv_gnustep_variable(GNUSTEP_SYSTEM_HEADERS QV_GNUSTEP_HEADERS)
qv_gnustep_variable(GNUSTEP_SYSTEM_LIBRARIES QV_GNUSTEP_LIBRARIES)
# The object runtime's headers belong to GCC.
execute_process(COMMAND gcc -print-file-name=include OUTPUT_VARIABLE QV_GCC_INCLUDE OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND gcc -print-file-name=libobjc.so OUTPUT_VARIABLE QV_LIBOBJC OUTPUT_STRIP_TRAILING_WHITESPACE)

target_compile_options(qv_objc INTERFACE
    -fobjc-runtime=gcc -fblocks -fexceptions -fobjc-exceptions -fconstant-string-class=NSConstantString -pthread
    -fno-strict-aliasing -Wno-unknown-pragmas -Wno-unused-command-line-argument "SHELL:-idirafter ${QV_GCC_INCLUDE}")
target_compile_definitions(qv_objc INTERFACE GNUSTEP GNUSTEP_BASE_LIBRARY=1 GNU_GUI_LIBRARY=1 GNU_RUNTIME=1
    _NATIVE_OBJC_EXCEPTIONS)
target_include_directories(qv_objc SYSTEM INTERFACE ${QV_GNUSTEP_HEADERS})
target_include_directories(qv_objc INTERFACE ${CMAKE_SOURCE_DIR}/Platform/GNUstep/Blocks)
target_link_libraries(qv_objc INTERFACE gnustep-gui gnustep-base ${QV_LIBOBJC} pthread)
# CMake knows no soname flag for this language; without one programs would look for the library by its build path.
set(CMAKE_SHARED_LIBRARY_SONAME_OBJCXX_FLAG "-Wl,-soname,")
