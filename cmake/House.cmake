# How the folders of src/ become libraries. One static library a folder; a library names the floors that
# it stands on, and nothing else is visible to it at link time.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# Warnings are errors, here and nowhere else.
add_library(tvx_warnings INTERFACE)
target_compile_options(tvx_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                       -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports overlaps inside std::string that cannot be, when it optimises a sum of texts.
    target_compile_options(tvx_warnings INTERFACE -Wno-restrict)
endif()

if(TVX_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=address,undefined)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # GCC 12 takes members inside std::regex for uninitialised once they are instrumented.
        target_compile_options(tvx_warnings INTERFACE -Wno-maybe-uninitialized)
    endif()
endif()

find_program(CLANG_TIDY_PROGRAM clang-tidy)

# tvx_library(NAME SOURCES ... PUBLIC floors its headers need ... PRIVATE floors only its sources need)
function(tvx_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} tvx_warnings)
    if(TVX_TIDY AND CLANG_TIDY_PROGRAM)
        set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY "${CLANG_TIDY_PROGRAM};--quiet")
    endif()
endfunction()

# A header-only floor.
function(tvx_headers name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${ARG_LINK})
endfunction()
