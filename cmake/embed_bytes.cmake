# Writes a C++ source that holds a file's bytes: cmake -DINPUT=FILE -DOUTPUT=SOURCE -DNAME=ARRAY -P this
# The bytes may be written to, for libmagic swaps those of another machine's database in place.
file(READ ${INPUT} bytes HEX)
string(REGEX REPLACE "................................" "\\0\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE ${OUTPUT} "#include <cstddef>

extern unsigned char ${NAME}[];
extern const std::size_t ${NAME}_size;

alignas(16) unsigned char ${NAME}[] = {
${bytes}};
const std::size_t ${NAME}_size = sizeof ${NAME};
")
