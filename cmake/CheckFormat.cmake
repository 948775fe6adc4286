# cmake -DCLANG_FORMAT=path -DROOT=dir -P CheckFormat.cmake
# Fails, naming the files, when a source file is not laid out as .clang-format says.
# Fix with: clang-format -i <file>
file(GLOB_RECURSE sources ${ROOT}/src/*.cpp ${ROOT}/src/*.h ${ROOT}/tests/*.cpp ${ROOT}/tests/*.h
     ${ROOT}/bench/*.cpp ${ROOT}/bench/*.h ${ROOT}/tools/*.cpp ${ROOT}/tools/*.h)
set(bad "")
foreach(f IN LISTS sources)
    execute_process(COMMAND ${CLANG_FORMAT} --style=file --dry-run -Werror ${f}
                    RESULT_VARIABLE rc OUTPUT_QUIET ERROR_QUIET)
    if(NOT rc EQUAL 0)
        file(RELATIVE_PATH rel ${ROOT} ${f})
        list(APPEND bad ${rel})
    endif()
endforeach()
if(bad)
    list(JOIN bad "\n  " text)
    message(FATAL_ERROR "Not formatted (run clang-format -i on them):\n  ${text}")
endif()
