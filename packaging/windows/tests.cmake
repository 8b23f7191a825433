# What is tested only under Wine: the programs as Windows' own users meet them.
if(CMAKE_CROSSCOMPILING AND WIN32)
    add_test(NAME karvel_cli_on_windows
        COMMAND ${CMAKE_CURRENT_LIST_DIR}/test-cli $<TARGET_FILE:karvel-cli> ${CMAKE_SOURCE_DIR}/data/tree)
    set_tests_properties(karvel_cli_on_windows PROPERTIES LABELS core TIMEOUT 300)
endif()
