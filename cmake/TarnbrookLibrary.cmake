include(GNUInstallDirs)
set(TARNBROOK_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/tarnbrook)

# tarnbrook_library(<name> [OPTIONAL] LINKS <targets...> [PRIVATE_HEADERS <files...>])
# One library per folder from the .cpp files directly in it (static unless BUILD_SHARED_LIBS),
# installed with its public headers under include/tarnbrook/<folder>/ and exported as
# Tarnbrook::<name>. Headers named PRIVATE_HEADERS stay in the source tree. An OPTIONAL
# library is left out of Tarnbrook::tarnbrook's pkg-config file: programs ask for it by name.
function(tarnbrook_library name)
  cmake_parse_arguments(ARG "OPTIONAL" "" "LINKS;PRIVATE_HEADERS" ${ARGN})
  set(target tarnbrook_${name})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_library(${target} ${sources})
  add_library(Tarnbrook::${name} ALIAS ${target})
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                              $<INSTALL_INTERFACE:${TARNBROOK_INCLUDE_DIR}>)
  target_link_libraries(${target} PUBLIC ${ARG_LINKS})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR})
  install(TARGETS ${target} EXPORT TarnbrookTargets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.hpp)
  foreach(private IN LISTS ARG_PRIVATE_HEADERS)
    list(REMOVE_ITEM headers ${CMAKE_CURRENT_SOURCE_DIR}/${private})
  endforeach()
  install(FILES ${headers} DESTINATION ${TARNBROOK_INCLUDE_DIR}/${folder})
  if(NOT ARG_OPTIONAL)
    set_property(GLOBAL APPEND PROPERTY TARNBROOK_LIBRARIES ${target})
  endif()
endfunction()

# tarnbrook_tests(<folder> LINKS <targets...>): one GoogleTest program per test folder.
function(tarnbrook_tests folder)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${folder} ${sources})
  target_link_libraries(test_${folder} PRIVATE ${ARG_LINKS} GTest::gtest GTest::gtest_main)
  target_compile_definitions(test_${folder} PRIVATE
    TARNBROOK_TEST_OUTPUT="${PROJECT_BINARY_DIR}/test-output"
    TARNBROOK_TEST_SOURCE="${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
  include(GoogleTest)
  gtest_discover_tests(test_${folder} DISCOVERY_TIMEOUT 60)
endfunction()
