# The XML parser is expat. One long token takes quadratic time before 2.6.0, and a chain of entities
# overflows the stack before 2.7.0. Distributions have repaired older ones without a new number, so
# the number does not say which are safe. A function does that came with the first of these repairs.
include(CheckCXXSymbolExists)

find_package(EXPAT REQUIRED)

if(NOT VANTRY_ALLOW_UNSAFE_PARSER)
  set(CMAKE_REQUIRED_LIBRARIES EXPAT::EXPAT)
  check_cxx_symbol_exists(XML_SetReparseDeferralEnabled expat.h VANTRY_PARSER_IS_SAFE)
  unset(CMAKE_REQUIRED_LIBRARIES)
  if(NOT VANTRY_PARSER_IS_SAFE)
    unset(VANTRY_PARSER_IS_SAFE CACHE)  # so that the next one is looked at
    message(FATAL_ERROR
      "A document can crash or stall expat ${EXPAT_VERSION_STRING} (${EXPAT_LIBRARIES}). Install the "
      "security updates of your distribution, or expat 2.7.0 or later. To build with this one all "
      "the same, for documents that you trust, set VANTRY_ALLOW_UNSAFE_PARSER.")
  endif()
endif()
