# Compiler settings that hold for all targets of the project.

# What every target is built with. Results depend on the order of floating-point operations, so the
# compiler may neither fuse nor reorder them.
add_library(merov_settings INTERFACE)
target_compile_features(merov_settings INTERFACE cxx_std_20)
target_include_directories(merov_settings INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(merov_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -ffp-contract=off)
# GCC 12 takes "a" + std::string for a copy onto itself when it inlines (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(merov_settings INTERFACE -Wno-restrict)
endif()
if(MEROV_SANITIZE)
  # Instrumented code makes GCC see uninitialized uses that are none; the plain builds keep that warning.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(merov_settings INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_compile_options(merov_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(merov_settings INTERFACE -fsanitize=address,undefined)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
