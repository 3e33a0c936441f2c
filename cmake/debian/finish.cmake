# What Debian wants of packages besides what an installation has. cpack runs it on the staged files.
set(here ${CMAKE_CURRENT_LIST_DIR})

foreach(package IN ITEMS programs:vantry development:libvantry-dev)
  string(REPLACE ":" ";" package ${package})
  list(POP_FRONT package component)
  set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}/usr/share)
  set(doc ${share}/doc/${package})
  configure_file(${here}/changelog.in ${doc}/changelog @ONLY)
  configure_file(${here}/copyright ${doc}/copyright COPYONLY)
  configure_file(${here}/${package}.overrides ${share}/lintian/overrides/${package} COPYONLY)

  file(GLOB pages ${share}/man/man*/*)
  execute_process(COMMAND gzip -9n ${doc}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
