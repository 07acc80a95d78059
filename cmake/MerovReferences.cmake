# Libraries that the project did not write and is compared with, in tests/against and bench.
if(NOT TARGET merov_references)
  find_path(ERFA_INCLUDE erfa.h REQUIRED)
  find_library(ERFA_LIBRARY erfa REQUIRED)
  find_path(LIBNOVA_INCLUDE libnova/libnova.h REQUIRED)
  find_library(LIBNOVA_LIBRARY nova REQUIRED)
  find_path(GEOGRAPHICLIB_INCLUDE GeographicLib/Rhumb.hpp REQUIRED)
  find_library(GEOGRAPHICLIB_LIBRARY NAMES GeographicLib Geographic REQUIRED)
  add_library(merov_references INTERFACE)
  target_include_directories(merov_references SYSTEM INTERFACE
    ${ERFA_INCLUDE} ${LIBNOVA_INCLUDE} ${GEOGRAPHICLIB_INCLUDE})
  target_link_libraries(merov_references INTERFACE ${ERFA_LIBRARY} ${LIBNOVA_LIBRARY} ${GEOGRAPHICLIB_LIBRARY})
endif()
