# Tests against a private MariaDB: one server for a run of ctest, started and stopped as a fixture.
set(mariadb_script ${CMAKE_CURRENT_LIST_DIR}/private_mariadb.sh)
set(mariadb_state ${CMAKE_BINARY_DIR}/mariadb)

add_test(NAME mariadb.start COMMAND ${mariadb_script} start ${mariadb_state})
add_test(NAME mariadb.stop COMMAND ${mariadb_script} stop ${mariadb_state})
set_tests_properties(mariadb.start PROPERTIES FIXTURES_SETUP mariadb TIMEOUT 120)
set_tests_properties(mariadb.stop PROPERTIES FIXTURES_CLEANUP mariadb TIMEOUT 60)

add_test(NAME mariadb.goes_with_its_run COMMAND ${CMAKE_CURRENT_LIST_DIR}/test_private_mariadb.sh)
set_tests_properties(mariadb.goes_with_its_run PROPERTIES TIMEOUT 120)

# bottegon_mariadb_test(NAME COMMAND...): the whole program in one process, the shop's books on the server.
function(bottegon_mariadb_test name)
    add_test(NAME mariadb.${name} COMMAND ${mariadb_script} run ${mariadb_state} ${ARGN})
    set_tests_properties(mariadb.${name} PROPERTIES FIXTURES_REQUIRED mariadb TIMEOUT 1200 ENVIRONMENT
        "BOTTEGON_PROVA_SERVER=mysql;BOTTEGON_PROVA_MARIADB=${mariadb_script};QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
