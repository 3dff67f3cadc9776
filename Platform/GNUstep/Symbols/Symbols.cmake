# Makes the masks of the system symbols from the icon package, beside the library that draws them. Nothing of the package is
# kept in this repository.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_path(QV_ICONS NAMES plus-lg.svg PATHS /usr/share/bootstrap-icons/svg /usr/local/share/bootstrap-icons/svg REQUIRED
          NO_CMAKE_FIND_ROOT_PATH)
set(symbols_source ${CMAKE_CURRENT_SOURCE_DIR}/GNUstep/Symbols)
set(symbols_target ${CMAKE_BINARY_DIR}/AppKitGlue.bundle/Libraries/Symbols)
add_custom_command(
    OUTPUT ${symbols_target}/.made
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${symbols_target}
    COMMAND ${symbols_source}/convert-symbols ${symbols_source}/symbols.txt ${QV_ICONS} ${symbols_target}
    COMMAND ${CMAKE_COMMAND} -E touch ${symbols_target}/.made
    DEPENDS ${symbols_source}/symbols.txt ${symbols_source}/convert-symbols
    COMMENT "Making the system symbols"
    VERBATIM)
add_custom_target(AppKitSymbols DEPENDS ${symbols_target}/.made)
add_dependencies(AppKitCompletions AppKitSymbols)
