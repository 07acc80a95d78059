# What Debian builds its programs with, in release builds: checks of the stack and of copies in bounds,
# and addresses that are fixed before the program starts. No number changes by it.
target_compile_options(merov_settings INTERFACE
  "$<$<CONFIG:Release>:-fstack-protector-strong;-Wformat;-Werror=format-security;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>"
  "$<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>")
target_link_options(merov_settings INTERFACE "$<$<CONFIG:Release>:-Wl,-z,relro,-z,now,--as-needed>")
