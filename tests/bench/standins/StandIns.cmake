# Stand-ins for the networking services a test run must not reach in Wine:
# netapi32.dll, dhcpcsvc.dll and mpr.dll (NetworkStandIns.h tells how tests use them),
# in tests/standins of the build tree. Included by tests/CMakeLists.txt after the
# bench library.
set(RWZ_STANDINS_BIN ${RWZ_TEST_BIN}/standins)

foreach(dll netapi32 dhcpcsvc mpr)
  add_library(standin_${dll} SHARED ${CMAKE_CURRENT_LIST_DIR}/${dll}.cpp)
  set_target_properties(standin_${dll} PROPERTIES OUTPUT_NAME ${dll} PREFIX ""
                        RUNTIME_OUTPUT_DIRECTORY ${RWZ_STANDINS_BIN})
endforeach()

target_sources(rwz_bench PRIVATE ${CMAKE_CURRENT_LIST_DIR}/NetworkStandIns.cpp)
add_dependencies(rwz_bench standin_netapi32 standin_dhcpcsvc standin_mpr)

# The network classes are tested against simulated machines.
if(TARGET test_network)
  target_link_libraries(test_network PRIVATE rwz_bench)
endif()
