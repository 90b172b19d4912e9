# The same, with Qt as scripts/windows-toolkit has built it.
include("${CMAKE_CURRENT_LIST_DIR}/windows.cmake")
execute_process(COMMAND "${CMAKE_CURRENT_LIST_DIR}/../scripts/windows-toolkit" where
    OUTPUT_VARIABLE KORVANTA_TOOLKIT OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND gcc -print-multiarch
    OUTPUT_VARIABLE host OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
list(APPEND CMAKE_FIND_ROOT_PATH "${KORVANTA_TOOLKIT}")
list(APPEND CMAKE_PREFIX_PATH "${KORVANTA_TOOLKIT}")
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR "/usr/lib/${host}/cmake")
