# The page that shows plots is written in TypeScript. node makes one file of it, which becomes part
# of zrd. Without node everything else is built, and zrd says what is missing.
set(VANTRY_PAGE AUTO CACHE STRING
  "Build the page that shows plots into zrd: ON, OFF, or AUTO if node and npm are there")
set_property(CACHE VANTRY_PAGE PROPERTY STRINGS AUTO ON OFF)
find_program(VANTRY_NODE NAMES node nodejs)
find_program(VANTRY_NPM npm)
mark_as_advanced(VANTRY_NODE VANTRY_NPM)

set(oldest_node 18.19)  # as in page/package.json
set(page_lacks "")
if(NOT VANTRY_NODE OR NOT VANTRY_NPM)
  set(page_lacks "node and npm")
else()
  execute_process(COMMAND ${VANTRY_NODE} --version OUTPUT_VARIABLE node_version)
  string(REGEX MATCH "[0-9.]+" node_version "${node_version}")
  if(node_version VERSION_LESS oldest_node)
    set(page_lacks "a node that is not older than ${oldest_node}, as ${node_version} is")
  endif()
endif()

set(VANTRY_HAS_PAGE ${VANTRY_PAGE})
if(VANTRY_PAGE STREQUAL AUTO)
  set(VANTRY_HAS_PAGE ON)
  if(page_lacks)
    set(VANTRY_HAS_PAGE OFF)
    message(STATUS "Without the page, which needs ${page_lacks}")
  endif()
elseif(VANTRY_PAGE AND page_lacks)
  message(FATAL_ERROR "The page needs ${page_lacks}")
endif()

# vantry_page_template(<target>): makes the page a part of a program.
function(vantry_page_template target)
  set(folder ${PROJECT_SOURCE_DIR}/page)
  set(template ${folder}/dist/template.html)
  set(packages ${folder}/node_modules/.package-lock.json)  # npm lists here what it has installed
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${folder}/src/*)
  add_custom_command(OUTPUT ${packages}
    COMMAND ${VANTRY_NPM} ci --no-audit --no-fund --loglevel=error
    COMMAND ${CMAKE_COMMAND} -E touch ${packages}
    DEPENDS ${folder}/package.json ${folder}/package-lock.json
    WORKING_DIRECTORY ${folder}
    COMMENT "Installing what the page is built with")
  add_custom_command(OUTPUT ${template}
    COMMAND ${VANTRY_NODE} tools/build.mjs
    DEPENDS ${packages} ${sources} ${folder}/tools/build.mjs
    WORKING_DIRECTORY ${folder}
    COMMENT "Building the page")
  set_source_files_properties(view/page_template.S PROPERTIES
    COMPILE_DEFINITIONS VANTRY_PAGE_TEMPLATE="${template}" OBJECT_DEPENDS ${template})
  set_source_files_properties(view/page_template.cpp PROPERTIES
    COMPILE_DEFINITIONS VANTRY_HAS_PAGE)
  target_sources(${target} PRIVATE view/page_template.S)
  install(FILES ${template} DESTINATION ${CMAKE_INSTALL_DATADIR}/vantry)
endfunction()
