# add_room(NAME FOLDER <folder> SOURCES ... LINKS ...)
#
# One room of the house: a static library with an include root of its own, so that a header of a
# room that is not linked can not be included. Every header must stand alone.
function(add_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${name} STATIC ${ROOM_SOURCES})
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/include/*.h)
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS include FILES ${headers})
  target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE house_rules ${ROOM_PRIVATE_LINKS})
endfunction()

# add_room_tests(NAME SOURCES ... LINKS ...)
#
# The tests of one room: an executable that CTest knows by its single tests.
function(add_room_tests name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ROOM_SOURCES})
  target_link_libraries(${name} PRIVATE ${ROOM_LINKS} house_rules GTest::gtest GTest::gmock
                                        GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST)
endfunction()
