# Removes the static initialiser at the end of the C++ file SOURCE that rcc wrote.
file(READ ${SOURCE} code)
string(FIND "${code}" "namespace {\n   struct initializer" start REVERSE)
if(start EQUAL -1)
    message(FATAL_ERROR "${SOURCE} does not end with the initialiser that this version of rcc should write")
endif()
string(SUBSTRING "${code}" 0 ${start} code)
file(WRITE ${SOURCE} "${code}")
