# Warnings for our own code (they are errors), sanitizers and the linker.
add_library(qv_warnings INTERFACE)
# Method implementations are cast from and to IMP, a variadic type: that is how the object runtime is called.
target_compile_options(qv_warnings INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wno-cast-function-type-mismatch -Werror)

if(QV_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize=vptr,function,alignment -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined -shared-libasan)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libclang_rt.asan-x86_64.so
                    OUTPUT_VARIABLE QV_ASAN_RUNTIME OUTPUT_STRIP_TRAILING_WHITESPACE)
    cmake_path(GET QV_ASAN_RUNTIME PARENT_PATH QV_ASAN_DIR)
    add_link_options(-Wl,-rpath,${QV_ASAN_DIR})
endif()
if(NOT APPLE)
    add_link_options(-fuse-ld=lld -Wl,--no-as-needed)
endif()
