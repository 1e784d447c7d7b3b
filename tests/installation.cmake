# Installs the build into a folder of its own and checks what landed there.
file(REMOVE_RECURSE ${ZIEL})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${ZIEL} RESULT_VARIABLE rc OUTPUT_QUIET)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "cmake --install schlug fehl: ${rc}")
endif()
foreach(datei bin/rillenkammer share/applications/rillenkammer.desktop
              share/icons/hicolor/scalable/apps/rillenkammer.svg
              share/metainfo/de.rillenkammer.Rillenkammer.metainfo.xml)
  if(NOT EXISTS ${ZIEL}/${datei})
    message(FATAL_ERROR "nicht installiert: ${datei}")
  endif()
endforeach()
find_program(DESKTOP_PRUEFUNG desktop-file-validate)
if(DESKTOP_PRUEFUNG)
  execute_process(COMMAND ${DESKTOP_PRUEFUNG} ${ZIEL}/share/applications/rillenkammer.desktop
                  RESULT_VARIABLE rc OUTPUT_VARIABLE aus ERROR_VARIABLE aus)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "desktop-file-validate: ${aus}")
  endif()
endif()
find_program(APPSTREAM appstreamcli)
if(APPSTREAM)
  execute_process(COMMAND ${APPSTREAM} validate --no-net
                          ${ZIEL}/share/metainfo/de.rillenkammer.Rillenkammer.metainfo.xml
                  RESULT_VARIABLE rc OUTPUT_VARIABLE aus ERROR_VARIABLE aus)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "appstreamcli: ${aus}")
  endif()
endif()
