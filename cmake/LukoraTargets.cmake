# What every target shares: the language, the warnings, the sanitizers and Qt's strict defines.
add_library(lukora_flags INTERFACE)
target_compile_features(lukora_flags INTERFACE cxx_std_20)
target_compile_options(lukora_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wconversion -Wno-sign-conversion
    $<$<BOOL:${LUKORA_WERROR}>:-Werror>)
target_compile_definitions(lukora_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(LUKORA_SANITIZE)
    target_compile_options(lukora_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(lukora_flags INTERFACE -fsanitize=address,undefined)
endif()
if(LUKORA_FUZZ)
    target_compile_options(lukora_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# lukora_folder(NAME files... LINKS targets...): the library of one folder. Its headers are seen
# as "folder/Header.h" only by the folders that name it among their LINKS: each library carries
# nothing but its own forwarding folder on the include path, so that an include against the order
# does not build.
function(lukora_folder name)
    cmake_parse_arguments(PARSE_ARGV 1 FOLDER "" "" "SOURCES;LINKS")
    add_library(lukora_${name} STATIC ${FOLDER_SOURCES})
    set(view ${CMAKE_BINARY_DIR}/include/${name})
    file(MAKE_DIRECTORY ${view})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${name} ${view}/${name} SYMBOLIC)
    target_include_directories(lukora_${name} PUBLIC ${view})
    target_link_libraries(lukora_${name} PUBLIC ${FOLDER_LINKS} PRIVATE lukora_flags)
endfunction()
