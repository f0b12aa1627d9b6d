# What every target of the project has in common: warnings (errors only in the presets that check: a newer compiler or
# library may warn where the user can do nothing about it), the root as include path, sanitizers.
function(glimmet_warnings name)
  target_compile_options(${name} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
    -Wnon-virtual-dtor -Woverloaded-virtual)
endfunction()

function(glimmet_target name)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  glimmet_warnings(${name})
  target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
  if(GLIMMET_SANITIZE)
    # Without vptr: that check looks at memory through a pipe and cries wolf where a test lets files run out.
    target_compile_options(${name} PRIVATE -fsanitize=address,undefined -fno-sanitize=vptr -fno-omit-frame-pointer
      -fno-sanitize-recover=undefined)
    target_link_options(${name} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# One archive a folder, all of which the program is linked from; tests link those that they test. What nearly every file of
# it includes is compiled once: half of the time that a file takes. The presets `lint` and `package` do without, so that no
# file relies on it.
function(glimmet_library folder)
  set(name glimmet_${folder})
  add_library(${name} STATIC ${ARGN})
  glimmet_target(${name})
  glimmet_precompiled_headers(${name})
endfunction()

function(glimmet_precompiled_headers name)
  target_precompile_headers(${name} PRIVATE <QByteArray> <QObject> <QString> <QStringList> <chrono> <functional>
    <memory> <optional> <vector>)
endfunction()

# Whoever loads the panel's library has in it everything below the panel, also what it does not use itself, and shows the
# panel those of its symbols that the list names, and no other.
function(glimmet_loads_panel name)
  set(archives glimmet_core glimmet_revenue glimmet_prices glimmet_platform)
  list(JOIN archives "," joined)
  set_target_properties(${name} PROPERTIES LINK_LIBRARY_OVERRIDE "WHOLE_ARCHIVE,${joined}")
  target_link_libraries(${name} PRIVATE ${archives})
  set(list ${PROJECT_SOURCE_DIR}/ui/panel/taken_from_program.list)
  target_link_options(${name} PRIVATE LINKER:--dynamic-list=${list})
  set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${list})
  add_dependencies(${name} glimmet_ui)
endfunction()
