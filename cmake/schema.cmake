# Puts the tables, the demonstration data and the manual of schema/ into a program, so that it needs no file beside it. One C++ file is made
# from all of them, again whenever one of them changes.
function(kestrel_embed_schema target)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/schema/*.tsv ${CMAKE_SOURCE_DIR}/schema/*.txt)
  set(script ${CMAKE_SOURCE_DIR}/cmake/embed.cmake)
  set(output ${CMAKE_BINARY_DIR}/schema/embedded.cpp)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DFOLDER=${CMAKE_SOURCE_DIR}/schema -DOUTPUT=${output} -P ${script}
    DEPENDS ${sources} ${script}
    COMMENT "Embedding schema/"
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
