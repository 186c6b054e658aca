# quorvix_library(FOLDER SOURCES file... [LINKS target...])
#
# One static library "quorvix_FOLDER" for src/FOLDER. Headers are included by their path below src/
# ("link/CRCService.h"). Each library publishes an include directory that holds nothing but its own
# folder, so that a source sees only the folders that its library links: a forbidden include does
# not compile.
function(quorvix_library folder)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    set(root ${CMAKE_BINARY_DIR}/include/${folder})
    file(MAKE_DIRECTORY ${root})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${folder} SYMBOLIC)
    add_library(quorvix_${folder} STATIC ${ARG_SOURCES})
    target_include_directories(quorvix_${folder} PUBLIC ${root})
    target_link_libraries(quorvix_${folder} PUBLIC ${ARG_LINKS})
endfunction()

# quorvix_test(NAME [SOURCES file...] [LINKS target...] [DEPENDS target...] [TIMEOUT seconds])
#
# A Qt Test program from NAME.cpp (and SOURCES), registered with CTest in the same breath: nothing is
# built but never run. Tests run off screen with private runtime and configuration directories.
# Programs named in DEPENDS are built first; their folder is BIN_DIR in the test's source.
function(quorvix_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINKS;DEPENDS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(${name} ${name}.cpp ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE BIN_DIR="${CMAKE_BINARY_DIR}/bin")
    target_link_libraries(${name} PRIVATE Qt5::Test ${ARG_LINKS})
    if(ARG_DEPENDS)
        add_dependencies(${name} ${ARG_DEPENDS})
    endif()
    quorvix_register_test(${name} TIMEOUT ${ARG_TIMEOUT} COMMAND ${name})
endfunction()

# quorvix_register_test(NAME TIMEOUT seconds COMMAND command [argument...])
#
# Registers a program with CTest, to run off screen with private runtime and configuration
# directories.
function(quorvix_register_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "COMMAND" ${ARGN})
    set(home ${CMAKE_BINARY_DIR}/tests/home/${name})
    file(MAKE_DIRECTORY ${home})
    file(CHMOD ${home} DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    add_test(NAME ${name} COMMAND ${ARG_COMMAND})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen;XDG_RUNTIME_DIR=${home};XDG_CONFIG_HOME=${home};HOME=${home};LC_ALL=C.UTF-8;LANGUAGE=;QT_QUICK_BACKEND=software;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")
endfunction()
