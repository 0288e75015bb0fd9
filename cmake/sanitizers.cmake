# What the sources and tests need to know of the sanitizers: each compiler has a name of its own for it.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=")
  set(NV8X_SANITIZED ON)
endif()
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=[^ ]*address")
  add_compile_definitions(NV8X_ADDRESS_SANITIZER)
endif()
