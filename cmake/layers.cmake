# vantry_layer(<folder> [LINKS <layer or target>...] [PUBLIC <header>... | PRIVATE <header>...])
#
# Makes the static library vantry_<name> of the sources in <folder> (a layer without sources is its
# headers), with the alias vantry::<name>, and installs it as part of the package, with the headers
# that are named as public, or all but those that are named as private.
# The name is that of the folder, with "_" for "/". Headers are included as "vantry/<folder>/file.h".
# They are reached through a folder of links that holds this one layer, so that a header of a layer
# that is not linked cannot be found. The tests of the layers hold both that and that no include
# climbs out of its folder.
function(vantry_layer folder)
  cmake_parse_arguments(LAYER "" "" "LINKS;PUBLIC;PRIVATE" ${ARGN})
  string(REPLACE "/" "_" name ${folder})
  set(target vantry_${name})

  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/${folder}/*.h ${PROJECT_SOURCE_DIR}/${folder}/*.def)

  set(view ${PROJECT_BINARY_DIR}/include/${name})
  file(REMOVE_RECURSE ${view})
  file(MAKE_DIRECTORY ${view}/vantry/${folder})
  foreach(header IN LISTS headers)
    cmake_path(GET header FILENAME file)
    file(CREATE_LINK ${header} ${view}/vantry/${folder}/${file} SYMBOLIC)
  endforeach()

  if(sources)
    add_library(${target} STATIC ${sources})
    set(scope PUBLIC)
    vantry_lto(${target})
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  add_library(vantry::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
  target_compile_features(${target} ${scope} cxx_std_20)
  target_include_directories(${target} ${scope}
    $<BUILD_INTERFACE:${view}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  foreach(link IN LISTS LAYER_LINKS)
    if(TARGET vantry_${link})
      set(link vantry_${link})
    endif()
    target_link_libraries(${target} ${scope} ${link})
  endforeach()

  install(TARGETS ${target} EXPORT vantry
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  if(sources)
    set_property(GLOBAL APPEND PROPERTY vantry_libraries ${target})
  endif()
  if(sources AND vantry_has_lto)
    # What only this version of the compiler can read does not belong into a package.
    install(CODE "
      set(library \"${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:${target}>\")
      cmake_path(ABSOLUTE_PATH library BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
      execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --remove-section=.gnu.lto_*
        \"\$ENV{DESTDIR}\${library}\" COMMAND_ERROR_IS_FATAL ANY)"
      COMPONENT development)
  endif()
  list(TRANSFORM LAYER_PUBLIC PREPEND ${PROJECT_SOURCE_DIR}/${folder}/)
  list(TRANSFORM LAYER_PRIVATE PREPEND ${PROJECT_SOURCE_DIR}/${folder}/)
  if(LAYER_PUBLIC)
    set(headers ${LAYER_PUBLIC})
  endif()
  list(REMOVE_ITEM headers ${LAYER_PRIVATE})
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vantry/${folder}
    COMPONENT development)
endfunction()
