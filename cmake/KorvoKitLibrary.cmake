# SPDX-FileCopyrightText: 2026 The K7 keyboard authors
# SPDX-License-Identifier: MIT

include(GenerateExportHeader)

# korvo_add_kit_library(<Namespace>::<Name> HEADERS <file>... [SOURCES <file>...] LINK <target>...)
#
# One shared library of the host kit, made from the current folder src/libs/<namespace>/<name>/.
# HEADERS are public: found and installed as <namespace/name/file.h>. LINK is public too, since the
# headers show the types of what they link. The export macro <NAMESPACE>_<NAME>_EXPORT comes from the
# generated <namespace/name/export.h>.
function(korvo_add_kit_library alias)
    cmake_parse_arguments(ARG "" "" "HEADERS;SOURCES;LINK" ${ARGN})
    string(REPLACE "::" ";" words ${alias})
    list(GET words 0 namespace)
    list(GET words 1 name)
    string(TOLOWER "${namespace}/${name}" folder)
    set(target ${namespace}${name})

    add_library(${target} SHARED ${ARG_SOURCES} ${ARG_HEADERS})
    add_library(${alias} ALIAS ${target})
    string(TOUPPER "${namespace}_${name}" base_name)
    generate_export_header(${target}
        BASE_NAME ${base_name}
        EXPORT_FILE_NAME ${PROJECT_BINARY_DIR}/include/${folder}/export.h)

    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR})
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_link_libraries(${target} PUBLIC ${ARG_LINK})
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src/libs>
        $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

    install(TARGETS ${target} EXPORT KorvoHostKit_${namespace}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT hostkit NAMELINK_COMPONENT hostkit-dev)
    install(FILES ${ARG_HEADERS} ${PROJECT_BINARY_DIR}/include/${folder}/export.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder} COMPONENT hostkit-dev)
endfunction()
