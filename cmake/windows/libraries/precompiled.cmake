# Compiles the standard headers once for the many small files of the library QOLF_PRECOMPILED.
# CMake reads this before the library's own files, which define the target; hence deferred.
set(headers
    algorithm array cassert cmath cstddef functional iomanip iostream limits list map memory queue
    set sstream stack string unordered_map unordered_set utility vector)
list(TRANSFORM headers REPLACE "(.+)" "$<$<COMPILE_LANGUAGE:CXX>:<\\1$<ANGLE-R>>")
cmake_language(DEFER CALL target_precompile_headers ${QOLF_PRECOMPILED} PRIVATE ${headers})
