# vantry_layer(<folder> [NAME <name>] [LINKS <layer or target>...])
#
# Makes the static library vantry_<name> of the sources in <folder> (a layer without sources is its
# headers), with the alias vantry::<name>, and installs it with its headers as part of the package.
# Its headers are included as "<folder>/file.h". They are reached through a folder of links that
# holds this one layer, so that a header of a layer that is not linked cannot be found. The tests of
# the layers hold both that and that no include climbs out of its folder.
function(vantry_layer folder)
  cmake_parse_arguments(LAYER "" "NAME" "LINKS" ${ARGN})
  if(NOT LAYER_NAME)
    set(LAYER_NAME ${folder})
  endif()
  set(target vantry_${LAYER_NAME})

  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)

  set(view ${PROJECT_BINARY_DIR}/include/${folder})
  file(MAKE_DIRECTORY ${view})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${view}/${folder} SYMBOLIC)

  if(sources)
    add_library(${target} STATIC ${sources})
    set(scope PUBLIC)
    vantry_lto(${target})
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  add_library(vantry::${LAYER_NAME} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${LAYER_NAME})
  target_compile_features(${target} ${scope} cxx_std_20)
  target_include_directories(${target} ${scope}
    $<BUILD_INTERFACE:${view}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vantry>)
  foreach(link IN LISTS LAYER_LINKS)
    if(TARGET vantry_${link})
      set(link vantry_${link})
    endif()
    target_link_libraries(${target} ${scope} ${link})
  endforeach()

  install(TARGETS ${target} EXPORT vantry ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  if(sources AND vantry_has_lto)
    # What only this version of the compiler can read does not belong into a package.
    install(CODE "
      set(library \"${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:${target}>\")
      cmake_path(ABSOLUTE_PATH library BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
      execute_process(COMMAND \"${CMAKE_OBJCOPY}\" --remove-section=.gnu.lto_*
        \"\$ENV{DESTDIR}\${library}\" COMMAND_ERROR_IS_FATAL ANY)")
  endif()
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vantry
    FILES_MATCHING PATTERN *.h PATTERN *.def)
endfunction()
