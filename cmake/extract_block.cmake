# Writes the first code block of a language in a page to a file, so that what the page shows is what the tests run:
# cmake -DPAGE=… -DLANGUAGE=… -DOUTPUT=… -P extract_block.cmake
file(READ ${PAGE} page)
string(FIND "${page}" "```${LANGUAGE}\n" begin)
if(begin EQUAL -1)
  message(FATAL_ERROR "${PAGE} has no block of ${LANGUAGE}")
endif()
string(LENGTH "```${LANGUAGE}\n" fence)
math(EXPR begin "${begin} + ${fence}")
string(SUBSTRING "${page}" ${begin} -1 block)
string(FIND "${block}" "```" end)
string(SUBSTRING "${block}" 0 ${end} block)
file(WRITE ${OUTPUT} "${block}")
