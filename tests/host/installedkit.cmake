# SPDX-FileCopyrightText: 2026 The K7 keyboard authors
# SPDX-License-Identifier: MIT

# Installs the build, builds the plug-in's own folder against the installed kit, and starts the installed
# k7host with the result from a foreign folder.
#
#   cmake -DBUILD=<build tree> -DPLUGIN_SOURCE=<folder> -DWORK=<scratch folder> -DGENERATOR=<generator>
#         -DCXX=<compiler> -DCXX_FLAGS=<flags> -P installedkit.cmake

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}\ngave ${result}\n${output}")
    endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
# Nothing of whoever runs the test.
set(ENV{XDG_CONFIG_HOME} ${WORK}/config)
foreach(variable IN ITEMS QT_SCALE_FACTOR QT_LOGGING_RULES QT_MESSAGE_PATTERN)
    unset(ENV{${variable}})
endforeach()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
# Whoever moves the tree takes along all that it needs.
file(RENAME ${WORK}/prefix ${WORK}/moved)

# As quickly as can be: it is about headers and libraries.
run(${CMAKE_COMMAND} -S ${PLUGIN_SOURCE} -B ${WORK}/plugin -G ${GENERATOR}
    -DCMAKE_BUILD_TYPE=None -DCMAKE_UNITY_BUILD=ON
    -DCMAKE_CXX_COMPILER=${CXX} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS} -O0"
    -DCMAKE_PREFIX_PATH=${WORK}/moved)
run(${CMAKE_COMMAND} --build ${WORK}/plugin)

file(MAKE_DIRECTORY ${WORK}/elsewhere)
set(plugins ${WORK}/plugin/lib/korvo/plugins)
foreach(arguments IN ITEMS "" "--plugin-dir;${plugins}")
    execute_process(
        COMMAND ${WORK}/moved/bin/k7host ${arguments} --screenshot ${WORK}/pictures --exit
        WORKING_DIRECTORY ${WORK}/elsewhere
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0 OR NOT output STREQUAL "" OR NOT EXISTS ${WORK}/pictures/console.png)
        message(FATAL_ERROR "k7host ${arguments}\ngave ${result}\n${output}")
    endif()
    file(REMOVE ${WORK}/pictures/console.png)
endforeach()

execute_process(COMMAND ${WORK}/moved/bin/k7host --plugin-dir ${plugins} --list-plugins OUTPUT_VARIABLE listed)
if(NOT listed MATCHES "^korvoeckeyboardk7\t4\\.0\\.4\trunning\t${plugins}/libkorvoeckeyboardk7\\.so\n$")
    message(FATAL_ERROR "the plug-in that was built against the installed kit is not listed:\n${listed}")
endif()
