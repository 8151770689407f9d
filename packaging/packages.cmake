# The target "packages": the programs of this width as a ZIP and as a setup in build/packages.
add_custom_target(packages
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/pack ${PROJECT_VERSION} $<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,x64,x86>
            ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR}/build/packages
    DEPENDS VrixToolkit VrixToolkitTrial VERBATIM)
