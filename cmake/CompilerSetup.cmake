# Language level, warnings as errors, hardening and sanitizers: the same for every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)

# Without these words ccache leaves out every source that uses a precompiled header.
find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_NOHASHDIR=true
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
    add_compile_options(-fpch-preprocess)
endif()

add_compile_options(
    -Wall -Wextra -Wformat=2 -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    -Wconversion -Wimplicit-fallthrough -Werror)
add_compile_definitions(QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(BOTTEGON_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(BOTTEGON_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
else()
    add_compile_options(-D_GLIBCXX_ASSERTIONS -fstack-protector-strong -fstack-clash-protection -fcf-protection)
    add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
        add_compile_options(-D_FORTIFY_SOURCE=3)
    endif()
endif()
