# SPDX-FileCopyrightText: 2026 The K7 keyboard authors
# SPDX-License-Identifier: MIT

# Warnings and instrumentation of this project's own targets. They are options of the directories, so
# nothing of them reaches whoever builds against the installed kit.

add_compile_options(
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    -Wno-gnu-zero-variadic-macro-arguments) # as qCWarning(category) << ... is

if(CMAKE_UNITY_BUILD)
    add_compile_options(-Wno-subobject-linkage) # sources are included there, and are no headers
endif()

if(KORVO_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()

if(KORVO_SANITIZE)
    add_compile_options(-fsanitize=${KORVO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KORVO_SANITIZE})
endif()

if(KORVO_COVERAGE)
    add_compile_options(--coverage -fprofile-abs-path)
    add_link_options(--coverage)
endif()
