function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${SCRATCH}/prefix)
run(${CMAKE_COMMAND} -G Ninja -S ${CONSUMER} -B ${SCRATCH}/build -D CMAKE_PREFIX_PATH=${SCRATCH}/prefix
    -D CMAKE_OBJCXX_COMPILER=${OBJCXX} -D CMAKE_CXX_COMPILER=${CXX})
run(${CMAKE_COMMAND} --build ${SCRATCH}/build)
# What was built must not stand in for what was installed.
run(${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH --unset=DISPLAY ${SCRATCH}/build/Consumer)
