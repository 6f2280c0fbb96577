# Run by ctest: where it is asked for tests by their names, each test of the program gets an entry of its own. Without
# that the shards stand for all of them.
if(NOT EXISTS ${program} OR NOT EXISTS /proc/self/cmdline)
    return()
endif()
file(STRINGS /proc/self/cmdline asked REGEX "^(-R|--tests-regex)")
if(NOT asked)
    return()
endif()

execute_process(COMMAND ${emulator} ${program} --gtest_list_tests OUTPUT_VARIABLE list)
# A line of a suite ends in a point, one of a test is indented; behind a "#" stands what its parameter is.
string(REGEX REPLACE " *#[^\n]*" "" list "${list}")
string(REGEX MATCHALL "[^\n]+" lines "${list}")
foreach(line IN LISTS lines)
    if(line MATCHES "^  ([^ ]+)")
        set(test ${suite}${CMAKE_MATCH_1})
        add_test(${prefix}${test} ${emulator} ${program} --gtest_filter=${test})
        set_tests_properties(${prefix}${test} PROPERTIES TIMEOUT 600 ENVIRONMENT "${environment}")
    elseif(line MATCHES "^([^ ]+[.])")
        set(suite ${CMAKE_MATCH_1})
    endif()
endforeach()
