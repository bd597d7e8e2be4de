# The folder that is handed out, as the component "vesmora": the program and, beside it, the
# folders it looks for there. Packaging and scripts/build choose the prefix.
if(TARGET vesmora)
  install(TARGETS vesmora RUNTIME DESTINATION . COMPONENT vesmora)
endif()
foreach(folder Prefab Alphabet Help)
  set(content)
  if(IS_DIRECTORY "${CMAKE_SOURCE_DIR}/data/${folder}")
    set(content "${CMAKE_SOURCE_DIR}/data/${folder}/")
  endif()
  # Without content the folder is still created.
  install(DIRECTORY ${content} DESTINATION ${folder} COMPONENT vesmora PATTERN ".git*" EXCLUDE)
endforeach()
