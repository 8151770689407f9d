# The target "packages": this width as a ZIP and an MSI, with its list of materials, in build/packages.

# What every package holds, besides the texts. To pack one more file, name it here.
set(files $<TARGET_FILE:VrixToolkit> $<TARGET_FILE:VrixToolkitTrial> $<TARGET_FILE:vrix>
    ${CMAKE_BINARY_DIR}/vrix.dsc.resource.json)

# A step of the MSI, in a library of its own, whose name Windows Installer finds without decoration.
add_library(vrix_guard MODULE EXCLUDE_FROM_ALL packaging/guard.cpp)
target_link_libraries(vrix_guard PRIVATE vrix_options vrix_checks msi)
target_compile_options(vrix_guard PRIVATE -fno-exceptions)
target_link_options(vrix_guard PRIVATE -s -Wl,--gc-sections -Wl,--kill-at -Wl,-Map=libvrix_guard.map)

# Draws the icon anew.
add_executable(make_icon EXCLUDE_FROM_ALL packaging/make_icon.cpp)
target_link_libraries(make_icon PRIVATE vrix_win32 gdiplus ole32)
target_link_options(make_icon PRIVATE -municode)

set(packaged $<TARGET_FILE:vrix_guard> ${files})
set(width $<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,x64,x86>)
set(packages ${CMAKE_SOURCE_DIR}/build/packages)
add_custom_target(packages
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/notices ${PROJECT_VERSION} ${width} ${CMAKE_BINARY_DIR} ${packages} ${packaged}
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/pack ${PROJECT_VERSION} ${width} ${packages} ${packaged}
            ${CMAKE_BINARY_DIR}/Notices.txt VERBATIM)
