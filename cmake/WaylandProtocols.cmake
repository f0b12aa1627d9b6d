# Code that speaks protocols of Wayland's, made of their descriptions.
pkg_get_variable(WAYLAND_SCANNER wayland-scanner wayland_scanner)
pkg_get_variable(WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)
if(NOT WAYLAND_SCANNER OR NOT WAYLAND_PROTOCOLS)
  message(FATAL_ERROR "wayland-scanner and wayland-protocols are needed (scripts/setup build installs them)")
endif()

# A library of the code for each description, which is named as it lies below the folder of wayland-protocols, without its
# ending. Who links it can include NAME-client-protocol.h.
function(glimmet_wayland_protocols library)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${library})
  file(MAKE_DIRECTORY ${folder})
  set(files)
  foreach(description IN LISTS ARGN)
    get_filename_component(name ${description} NAME)
    set(source ${WAYLAND_PROTOCOLS}/${description}.xml)
    foreach(form "client-header;${name}-client-protocol.h" "private-code;${name}-protocol.c")
      list(GET form 0 kind)
      list(GET form 1 file)
      add_custom_command(
        OUTPUT ${folder}/${file}
        COMMAND ${WAYLAND_SCANNER} ${kind} ${source} ${folder}/${file}
        DEPENDS ${source}
        VERBATIM)
      list(APPEND files ${folder}/${file})
    endforeach()
  endforeach()
  add_library(${library} STATIC ${files})
  set_target_properties(${library} PROPERTIES AUTOMOC OFF)
  target_include_directories(${library} SYSTEM PUBLIC ${folder})
  target_link_libraries(${library} PUBLIC PkgConfig::WAYLAND)
endfunction()
