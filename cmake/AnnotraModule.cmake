# annotra_module(NAME DIRS [DEPS...])
#   Builds every *.cpp of DIRS except *_test.cpp and *_fuzz.cpp into the static library
#   annotra_NAME, linked to DEPS (annotra module names or imported targets), and every
#   *_test.cpp of DIRS into the test program NAME_test. New files are picked up at the
#   next build.
#
#   A module exports only its own folders: each folder of DIRS (a path below src/) is
#   reachable through a link in a staging folder of the module's own
#   (build/include/NAME/platform/core -> src/platform/core), and that staging folder is
#   the one include folder the module hands on. So a module, and the modules above it,
#   reach exactly the headers of the modules they link to; an include that points at a
#   module that is not a dependency fails to compile.
function(annotra_stage_includes name dirs)
  set(stage "${CMAKE_BINARY_DIR}/include/${name}")
  foreach(dir IN LISTS dirs)
    string(REGEX REPLACE "^src/" "" inside "${dir}")
    get_filename_component(parent "${stage}/${inside}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    if(IS_SYMLINK "${stage}/${inside}")
      file(REMOVE "${stage}/${inside}")
    endif()
    file(CREATE_LINK "${CMAKE_SOURCE_DIR}/${dir}" "${stage}/${inside}" SYMBOLIC)
  endforeach()
  set(ANNOTRA_STAGE "${stage}" PARENT_SCOPE)
endfunction()

function(annotra_module name dirs)
  set(sources "")
  set(tests "")
  foreach(dir IN LISTS dirs)
    file(GLOB found CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${dir}/*.cpp")
    foreach(f IN LISTS found)
      if(f MATCHES "_test\\.cpp$")
        list(APPEND tests "${f}")
      elseif(NOT f MATCHES "_fuzz\\.cpp$")
        list(APPEND sources "${f}")
      endif()
    endforeach()
  endforeach()
  set(deps "")
  foreach(d IN LISTS ARGN)
    if(TARGET annotra_${d})
      list(APPEND deps annotra_${d})
    elseif(d MATCHES "::")
      list(APPEND deps ${d})
    else()
      message(FATAL_ERROR "annotra_module(${name}): '${d}' is no module defined before it")
    endif()
  endforeach()
  annotra_stage_includes(${name} "${dirs}")
  if(sources)
    add_library(annotra_${name} STATIC ${sources})
    target_include_directories(annotra_${name} PUBLIC ${ANNOTRA_STAGE})
    target_link_libraries(annotra_${name} PUBLIC ${deps})
  else()
    add_library(annotra_${name} INTERFACE)
    target_include_directories(annotra_${name} INTERFACE ${ANNOTRA_STAGE})
    target_link_libraries(annotra_${name} INTERFACE ${deps})
  endif()
  if(ANNOTRA_TESTS AND tests)
    add_executable(${name}_test ${tests})
    target_link_libraries(${name}_test PRIVATE annotra_${name} annotra_testsupport GTest::gtest GTest::gmock GTest::gtest_main)
    target_compile_definitions(${name}_test PRIVATE
      ANNOTRA_SOURCE_DIR="${CMAKE_SOURCE_DIR}" ANNOTRA_TESTDATA_DIR="${CMAKE_SOURCE_DIR}/testdata")
    gtest_discover_tests(${name}_test DISCOVERY_TIMEOUT 60
      PROPERTIES ENVIRONMENT "ANNOTRA_APP_PATH=${CMAKE_SOURCE_DIR}/resources")
  endif()
endfunction()
