# The flags with which Debian 12 hardens what it builds (dpkg-buildflags with hardening=+all), for
# everything that links one of the source folders.
option(NV8X_HARDENING "Build with Debian's hardening flags" ON)

add_library(nv8x_hardening INTERFACE)
if(NV8X_HARDENING)
  target_compile_options(nv8x_hardening INTERFACE
    -fPIE -fstack-protector-strong -Wformat -Werror=format-security
    # The checked versions of the C library's functions need an optimised build.
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
  target_link_options(nv8x_hardening INTERFACE -pie -Wl,-z,relro -Wl,-z,now)
endif()
