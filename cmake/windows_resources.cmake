# korvanta_windows_resources(TARGET DESCRIPTION): gives a program its icon, its version record and its
# manifest on Windows; does nothing elsewhere.
if(NOT WIN32)
  function(korvanta_windows_resources)
  endfunction()
  return()
endif()

enable_language(RC)
set(icon "${CMAKE_CURRENT_BINARY_DIR}/korvanta.ico")
if(KORVANTA_UI)
  find_program(KORVANTA_RSVG_CONVERT rsvg-convert REQUIRED)
  find_program(KORVANTA_CONVERT convert REQUIRED)
  set(drawing "${PROJECT_SOURCE_DIR}/assets/pictures/korvanta.svg")
  foreach(side 16 20 24 32 40 48 64 128 256)
    set(bitmap "${CMAKE_CURRENT_BINARY_DIR}/korvanta-${side}.png")
    add_custom_command(OUTPUT "${bitmap}"
        COMMAND ${KORVANTA_RSVG_CONVERT} -w ${side} -h ${side} --output "${bitmap}" "${drawing}"
        DEPENDS "${drawing}" VERBATIM)
    list(APPEND bitmaps "${bitmap}")
  endforeach()
  add_custom_command(OUTPUT "${icon}"
      COMMAND ${KORVANTA_CONVERT} ${bitmaps} "${icon}" DEPENDS ${bitmaps} VERBATIM)
  add_custom_target(korvanta_icon DEPENDS "${icon}")
endif()

# The version record has the minor number in two digits.
set(minor "0${PROJECT_VERSION_MINOR}")
string(REGEX REPLACE "^0(..)$" "\\1" minor "${minor}")
set(KORVANTA_PRODUCT_VERSION "${PROJECT_VERSION_MAJOR}.${minor}")

function(korvanta_windows_resources target description)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}_resources")
  configure_file("${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in" "${folder}/${target}.rc" @ONLY)
  target_sources(${target} PRIVATE "${folder}/${target}.rc")
  set_source_files_properties("${folder}/${target}.rc" PROPERTIES OBJECT_DEPENDS
      "${icon};${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest")
  add_dependencies(${target} korvanta_icon)
endfunction()
