# `lint`: the format of every C++ file, clang-tidy over the sources of the program, qmllint over its QML, and the
# arrows between the folders. It reads compile_commands.json, which the presets write.
find_program(GLIMMET_CLANG_FORMAT NAMES clang-format-14)
find_program(GLIMMET_RUN_CLANG_TIDY NAMES run-clang-tidy-14)

add_custom_target(lint-format
  COMMAND sh -c "git ls-files -co --exclude-standard -- '*.cpp' '*.h' | xargs '${GLIMMET_CLANG_FORMAT}' --dry-run -Werror"
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
  COMMENT "Checking the format of the C++ files"
  VERBATIM)

# The tests are left to the compiler's warnings: the macros of GoogleTest would need most checks to be off.
add_custom_target(lint-tidy
  COMMAND ${GLIMMET_RUN_CLANG_TIDY} -quiet -p ${CMAKE_BINARY_DIR}
    "^${PROJECT_SOURCE_DIR}/(app|core|revenue|prices|platform|ui)/.*[.]cpp$"
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
  COMMENT "Running clang-tidy over the sources"
  VERBATIM)

add_custom_target(lint-layers
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-layers
  COMMENT "Checking the arrows between the folders"
  VERBATIM)

add_custom_target(lint)
add_dependencies(lint lint-format lint-tidy lint-layers)
if(TARGET all_qmllint)
  add_dependencies(lint all_qmllint)
endif()
