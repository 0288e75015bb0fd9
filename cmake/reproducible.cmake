# A release holds no path of the machine that built it, also when CXXFLAGS asks for debug
# information. Debug builds keep them, for the debugger to find the sources.
add_compile_options("$<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>")
