# `lint`: the format of every C++ file, flake8 over the Python, clang-tidy over the sources of the program, qmllint over its
# QML, and the arrows between the folders. It reads compile_commands.json, which the presets write. One version of the
# tools, since another formats and warns differently; a tool that is missing is a failure.
add_custom_target(lint-format
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-format
  COMMENT "Checking the format of the C++ files"
  VERBATIM)

add_custom_target(lint-python
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-python
  COMMENT "Checking the Python files"
  VERBATIM)

# The tests are left to the compiler's warnings: the macros of GoogleTest would need most checks to be off.
add_custom_target(lint-tidy
  COMMAND run-clang-tidy-19 -quiet -p ${CMAKE_BINARY_DIR}
    "^${PROJECT_SOURCE_DIR}/(app|core|feed|revenue|prices|platform|ui)/.*[.]cpp$"
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
  COMMENT "Running clang-tidy over the sources"
  VERBATIM)

add_custom_target(lint-layers
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-layers
  COMMENT "Checking the arrows between the folders"
  VERBATIM)

add_custom_target(lint)
add_dependencies(lint lint-format lint-python lint-tidy lint-layers)
if(TARGET all_qmllint)
  add_dependencies(lint all_qmllint)
endif()
