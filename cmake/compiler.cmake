# Every machine must print the same digits: no fused multiply-add behind the source's back.
add_compile_options(-ffp-contract=off)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict)  # a false alarm at "text" + std::string, GCC bug 105651
endif()

if(VANTRY_SANITIZE)
  add_compile_options(
    -fsanitize=${VANTRY_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VANTRY_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-maybe-uninitialized)  # false alarms in instrumented code
  endif()
endif()

if(VANTRY_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# What distributions build with, as far as the compiler has it for the processor. What it costs, and
# what is left out, is in docs/performance.md.
if(VANTRY_HARDENING)
  include(CheckCXXCompilerFlag)
  foreach(flag stack-protector-strong stack-clash-protection)
    check_cxx_compiler_flag(-f${flag} VANTRY_HAS_${flag})
    if(VANTRY_HAS_${flag})
      add_compile_options(-f${flag})
    endif()
  endforeach()
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS)
  add_compile_options($<$<NOT:$<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>>:-fPIE>)
  add_link_options($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>)
  add_link_options(-Wl,-z,relro,-z,now)
endif()

set(vantry_has_lto FALSE)
if(VANTRY_LTO AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set(vantry_has_lto TRUE)
  add_link_options(-fno-lto)
endif()

# vantry_lto(<target>): lets the program be optimised across this target, where the build is made so.
# The objects are fat, so that everything else, tests and other programs too, links them as usual.
function(vantry_lto target)
  if(vantry_has_lto)
    target_compile_options(${target} PRIVATE -flto=auto -ffat-lto-objects)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
      target_link_options(${target} PRIVATE -flto=auto)
    endif()
  endif()
endfunction()

# vantry_program(<target>): makes a target one of the programs. Most of the start of a small process is
# the work of the dynamic loader, and most of that is for the C++ library. What is left is for the
# tables of virtual functions, whose addresses it reads from a packed list where it knows of such.
include(CheckLinkerFlag)
check_linker_flag(CXX -Wl,-z,pack-relative-relocs VANTRY_HAS_packed_relocations)

function(vantry_program target)
  vantry_lto(${target})
  if(VANTRY_STATIC_RUNTIME)
    target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc)
    if(VANTRY_HAS_packed_relocations)
      target_link_options(${target} PRIVATE -Wl,-z,pack-relative-relocs)
    endif()
  endif()
endfunction()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
