# One static library per source folder. The DEPS list is the dependency truth:
# the layering test allows a file to include headers of its own folder and of
# the folders its target links to, directly or not, and nothing else.

set_property(GLOBAL PROPERTY QX_LAYERS "")

function(qx_add_library name)
  cmake_parse_arguments(ARG "" "DIR" "SOURCES;DEPS;LIBS" ${ARGN})
  if(NOT ARG_SOURCES)
    # Every .cpp of the folder and its subfolders, except those of qt/ folders,
    # which are targets of their own.
    file(GLOB_RECURSE ARG_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${ARG_DIR}/*.cpp)
    list(FILTER ARG_SOURCES EXCLUDE REGEX "/qt/")
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPS} ${ARG_LIBS})
  set(allowed ${ARG_DIR})
  foreach(dep IN LISTS ARG_DEPS)
    get_property(dep_allowed GLOBAL PROPERTY QX_ALLOWED_${dep})
    if(NOT DEFINED dep_allowed OR dep_allowed STREQUAL "")
      message(FATAL_ERROR "${name}: dependency ${dep} must be defined before it")
    endif()
    list(APPEND allowed ${dep_allowed})
  endforeach()
  list(REMOVE_DUPLICATES allowed)
  set_property(GLOBAL PROPERTY QX_ALLOWED_${name} "${allowed}")
  set_property(GLOBAL APPEND PROPERTY QX_LAYERS "${ARG_DIR}=${name}")
endfunction()

# Tests: one executable per library target, discovered by CTest.
function(qx_add_test_suite name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gtest_main GTest::gmock)
  target_compile_definitions(${name} PRIVATE QX_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data"
                                             QX_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()

function(qx_write_layer_table)
  get_property(layers GLOBAL PROPERTY QX_LAYERS)
  set(text "set(QX_LAYER_DIRS \"\")\n")
  foreach(entry IN LISTS layers)
    string(REPLACE "=" ";" pair "${entry}")
    list(GET pair 0 dir)
    list(GET pair 1 target)
    get_property(allowed GLOBAL PROPERTY QX_ALLOWED_${target})
    string(MAKE_C_IDENTIFIER "${dir}" key)
    string(APPEND text "list(APPEND QX_LAYER_DIRS \"${dir}\")\n")
    string(APPEND text "set(QX_ALLOWED_${key} \"${allowed}\")\n")
  endforeach()
  file(WRITE ${CMAKE_BINARY_DIR}/qx_layers.cmake "${text}")
endfunction()
