# vesmora_describe_for_windows(PROGRAM DESCRIPTION): icon, version and manifest of a program. It does
# nothing elsewhere.
function(vesmora_describe_for_windows program description)
  if(NOT WIN32)
    return()
  endif()
  set(packaging "${CMAKE_SOURCE_DIR}/packaging")
  set(VESMORA_PROGRAM "${program}")
  set(VESMORA_DESCRIPTION "${description}")
  set(VESMORA_ICON "${packaging}/icons/vesmora.ico")
  set(VESMORA_MANIFEST "${CMAKE_CURRENT_BINARY_DIR}/${program}.manifest")
  set(resources "${CMAKE_CURRENT_BINARY_DIR}/${program}.rc")
  configure_file("${packaging}/windows/vesmora.manifest.in" "${VESMORA_MANIFEST}" @ONLY)
  configure_file("${packaging}/windows/vesmora.rc.in" "${resources}" @ONLY)
  set_source_files_properties("${resources}" PROPERTIES
    OBJECT_DEPENDS "${VESMORA_ICON};${VESMORA_MANIFEST}")
  target_sources(${program} PRIVATE "${resources}")
  target_link_options(${program} PRIVATE -Wl,--no-insert-timestamp)  # same sources, same bytes
endfunction()
