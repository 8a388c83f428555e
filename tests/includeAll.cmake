# Writes a header that includes all headers of a folder.
file(GLOB files ${headers}/*.h)
set(text "")
foreach(file IN LISTS files)
  string(APPEND text "#include \"${file}\"\n")
endforeach()
file(WRITE ${output} "${text}")
