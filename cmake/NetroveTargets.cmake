# How every target of the tree is made: one library a room, the same warnings everywhere, and
# precompiled Qt headers shared by all targets of a kind.

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_NOHASHDIR=1
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} ${CCACHE})
endif()

add_library(netrove_options INTERFACE)
target_compile_options(netrove_options INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wcast-qual -Wformat=2)
target_compile_definitions(netrove_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_CONTEXTLESS_CONNECT QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_USE_QSTRINGBUILDER
    QT_NO_KEYWORDS)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # ccache can't reuse objects built from a clang PCH that carries its time stamp.
    target_compile_options(netrove_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
else()
    target_compile_options(netrove_options INTERFACE -fpch-preprocess)
endif()
if(NETROVE_SANITIZERS)
    target_compile_options(netrove_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-sanitize=vptr
        -fno-omit-frame-pointer -O1)
    target_link_options(netrove_options INTERFACE -fsanitize=address,undefined)
    if(NETROVE_FUZZERS)
        target_compile_options(netrove_options INTERFACE -fsanitize=fuzzer-no-link)
    endif()
endif()
if(NETROVE_THREAD_SANITIZER)
    target_compile_options(netrove_options INTERFACE
        -fsanitize=thread -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
    target_link_options(netrove_options INTERFACE -fsanitize=thread)
endif()

function(netrove_pch name)
    # Written once: a new time stamp would build everything anew.
    if(NOT EXISTS ${CMAKE_BINARY_DIR}/${name}.cpp)
        file(WRITE ${CMAKE_BINARY_DIR}/${name}.cpp "")
    endif()
    add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PUBLIC netrove_options ${ARGN})
endfunction()

netrove_pch(pch_core Qt6::Core)
target_precompile_headers(pch_core PRIVATE <QtCore/QtCore> <functional> <memory> <optional> <span> <vector>)
set_target_properties(pch_core PROPERTIES POSITION_INDEPENDENT_CODE ON)
if(NETROVE_WINDOW)
    netrove_pch(pch_widgets Qt6::Core Qt6::Gui Qt6::Widgets)
    target_precompile_headers(pch_widgets PRIVATE
        <QtWidgets/QtWidgets> <functional> <memory> <optional> <span> <vector>)
    set_target_properties(pch_widgets PROPERTIES POSITION_INDEPENDENT_CODE ON)
endif()

# A room's headers are included as "room/Header.h", through a folder of links that only those
# see who link the room.
function(netrove_publish_headers name)
    file(RELATIVE_PATH room ${CMAKE_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
    set(links ${CMAKE_BINARY_DIR}/rooms/${name})
    file(REMOVE_RECURSE ${links})
    file(MAKE_DIRECTORY ${links}/${room})
    file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    foreach(header ${headers})
        get_filename_component(file ${header} NAME)
        file(CREATE_LINK ${header} ${links}/${room}/${file} SYMBOLIC)
    endforeach()
    target_include_directories(${name} PUBLIC ${links})
endfunction()

# netrove_library(NAME [WIDGETS] SOURCES … [PUBLIC …] [PRIVATE …]): a room. PUBLIC lists the rooms that
# its headers include, PRIVATE those that only its sources do; scripts/check-rooms holds them to it.
function(netrove_library name)
    cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    netrove_publish_headers(${name})
    netrove_configure(${name} "${ARG_WIDGETS}" PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
endfunction()

# netrove_program(NAME [WIDGETS] SOURCES … [LINKS …])
function(netrove_program name)
    cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    netrove_configure(${name} "${ARG_WIDGETS}" ${ARG_LINKS})
endfunction()

function(netrove_configure name widgets)
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    if(widgets)
        set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
        target_link_libraries(${name} PUBLIC netrove_options Qt6::Core Qt6::Gui Qt6::Widgets ${ARGN})
        target_precompile_headers(${name} REUSE_FROM pch_widgets)
    else()
        target_link_libraries(${name} PUBLIC netrove_options Qt6::Core ${ARGN})
        target_precompile_headers(${name} REUSE_FROM pch_core)
    endif()
endfunction()

# netrove_test(NAME [WIDGETS] [OWN_MAIN] [TIMEOUT s] SOURCES … [LINKS …]): a GoogleTest program, one
# ctest entry. With WIDGETS its main makes a QApplication, and QTest's input functions are there.
function(netrove_test name)
    cmake_parse_arguments(ARG "WIDGETS;OWN_MAIN" "TIMEOUT" "SOURCES;LINKS" ${ARGN})
    if(NOT NETROVE_TESTS OR (ARG_WIDGETS AND NOT NETROVE_WINDOW))
        return()
    endif()
    find_package(GTest REQUIRED)
    add_executable(${name} ${ARG_SOURCES})
    netrove_configure(${name} "${ARG_WIDGETS}" ${ARG_LINKS} GTest::gtest)
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    if(ARG_WIDGETS)
        find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
        target_link_libraries(${name} PRIVATE Qt6::Test)
    endif()
    if(ARG_WIDGETS AND NOT ARG_OWN_MAIN)
        target_sources(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests/WidgetMain.cpp)
    elseif(NOT ARG_OWN_MAIN)
        target_link_libraries(${name} PRIVATE GTest::gtest_main)
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/leaks.supp:print_suppressions=0;TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/threads.supp")
endfunction()

# netrove_fuzzer(NAME SOURCES … [LINKS …]): a libFuzzer target, run for NETROVE_FUZZ_SECONDS. It starts
# from the inputs in corpus/NAME beside its sources; what it finds stays in the build folder.
function(netrove_fuzzer name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    if(NOT NETROVE_FUZZERS)
        return()
    endif()
    add_executable(${name} ${ARG_SOURCES} ${CMAKE_SOURCE_DIR}/tests/fakes/Fuzz.cpp)
    netrove_configure(${name} "" ${ARG_LINKS})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set(found ${CMAKE_CURRENT_BINARY_DIR}/corpus/${name})
    file(MAKE_DIRECTORY ${found})
    set(given ${CMAKE_CURRENT_SOURCE_DIR}/corpus/${name})
    if(NOT EXISTS ${given})
        set(given "")
    endif()
    # An input may take long on a loaded machine, but not so long.
    add_test(NAME ${name} COMMAND ${name} -max_total_time=${NETROVE_FUZZ_SECONDS} -timeout=20
        -rss_limit_mb=2048 -max_len=4096 -print_final_stats=1 -verbosity=0
        -artifact_prefix=${found}- ${found} ${given})
    math(EXPR limit "${NETROVE_FUZZ_SECONDS} + 60")
    set_tests_properties(${name} PROPERTIES TIMEOUT ${limit})
endfunction()

# netrove_benchmark(NAME [WIDGETS] SOURCES … [LINKS …]): a Google Benchmark program. With WIDGETS its
# main makes a QApplication, which shows nothing unless QT_QPA_PLATFORM says so.
function(netrove_benchmark name)
    cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINKS" ${ARGN})
    find_package(benchmark REQUIRED)
    set(widgets "")
    if(ARG_WIDGETS)
        set(widgets WIDGETS)
        list(APPEND ARG_SOURCES ${CMAKE_SOURCE_DIR}/bench/WidgetMain.cpp)
    endif()
    netrove_program(${name} ${widgets} SOURCES ${ARG_SOURCES} LINKS ${ARG_LINKS} benchmark::benchmark)
endfunction()
