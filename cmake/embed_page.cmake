# cmake -DFOLDER=… -DOUTPUT=… -P embed_page.cmake: writes the page of a run, with its style and its
# scripts in it, as a C++ source.
file(READ "${FOLDER}/page.html" page)
file(READ "${FOLDER}/page.css" style)
set(script)
foreach(part IN ITEMS markup facts scenes drawing axis timeline calls sections main)
  file(READ "${FOLDER}/${part}.js" text)
  string(APPEND script "${text}")
endforeach()
string(REPLACE "PAGE-STYLE" "${style}" page "${page}")
string(REPLACE "PAGE-SCRIPT" "${script}" page "${page}")

# A literal may hold 64 KiB on every compiler; literals side by side are one text.
set(literals)
string(LENGTH "${page}" length)
set(at 0)
while(at LESS length)
  string(SUBSTRING "${page}" ${at} 8000 piece)
  string(APPEND literals "    R\"__page__(${piece})__page__\"\n")
  math(EXPR at "${at} + 8000")
endwhile()
file(WRITE "${OUTPUT}" "#include \"page/page_template.h\"

namespace orvane::simulation {

const std::string_view pageTemplate =
${literals};

}  // namespace orvane::simulation
")
