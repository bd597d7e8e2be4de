# Two ways to install.
#   --component vesmora   the folder that lies in the game's own: the program and, beside it, the
#                         folders it looks for there. Packaging and scripts/build choose the prefix.
#   no component named    for the whole system, below a prefix such as /usr/local (not on Windows);
#                         the Debian package is its component "system".
set(only_when_named)
if(UNIX)
  set(only_when_named EXCLUDE_FROM_ALL)
endif()

install(TARGETS vesmora vesmora-map RUNTIME DESTINATION . COMPONENT vesmora ${only_when_named})
foreach(folder Prefab Alphabet Help)
  install(DIRECTORY "${CMAKE_SOURCE_DIR}/data/${folder}" DESTINATION . COMPONENT vesmora
    ${only_when_named})
endforeach()

if(UNIX)
  set(packaging "${CMAKE_SOURCE_DIR}/packaging")
  # The program looks for ../share/vesmora, so these places are not for choosing.
  install(TARGETS vesmora vesmora-map RUNTIME DESTINATION bin COMPONENT system)
  foreach(folder Prefab Alphabet Help)
    install(DIRECTORY "${CMAKE_SOURCE_DIR}/data/${folder}" DESTINATION share/vesmora
      COMPONENT system)
  endforeach()
  install(FILES "${packaging}/linux/vesmora.desktop" DESTINATION share/applications
    COMPONENT system)
  install(FILES "${packaging}/linux/vesmora.xml" DESTINATION share/mime/packages COMPONENT system)
  set(filled_in "${CMAKE_BINARY_DIR}/packaging")
  foreach(file example.vesmora.Vesmora.metainfo.xml vesmora.1 vesmora-map.1)
    configure_file("${packaging}/linux/${file}.in" "${filled_in}/${file}" @ONLY)
  endforeach()
  install(FILES "${filled_in}/example.vesmora.Vesmora.metainfo.xml" DESTINATION share/metainfo
    COMPONENT system)
  install(FILES "${filled_in}/vesmora.1" "${filled_in}/vesmora-map.1" DESTINATION share/man/man1
    COMPONENT system)
  install(FILES "${packaging}/linux/vesmora-map.bash" RENAME vesmora-map
    DESTINATION share/bash-completion/completions COMPONENT system)
  install(FILES "${packaging}/icons/vesmora.svg" DESTINATION share/icons/hicolor/scalable/apps
    COMPONENT system)
  foreach(size 16 24 32 48 64 128 256)
    install(FILES "${packaging}/icons/vesmora-${size}.png" RENAME vesmora.png
      DESTINATION "share/icons/hicolor/${size}x${size}/apps" COMPONENT system)
  endforeach()
  # What desktops keep of the above; packages have this done for them by the distribution.
  install(CODE [[
    if("$ENV{DESTDIR}" STREQUAL "")
      set(share "${CMAKE_INSTALL_PREFIX}/share")
      foreach(command "update-mime-database;${share}/mime"
                      "update-desktop-database;${share}/applications")
        list(GET command 0 tool)
        find_program(found ${tool} NO_CACHE)
        if(found)
          execute_process(COMMAND ${command} OUTPUT_QUIET ERROR_QUIET)
        endif()
        unset(found)
      endforeach()
    endif()]] COMPONENT desktop_caches)
  include(Debian)
endif()
