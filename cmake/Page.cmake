# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT

# Makes one page that a browser shows, offline, of Markdown texts: CONVERTER LANGUAGE SOURCES (divided by "|") TARGET.
string(REPLACE "|" ";" SOURCES "${SOURCES}")
set(body "")
foreach(source IN LISTS SOURCES)
  execute_process(
    COMMAND "${CONVERTER}" --extension table --extension autolink "${source}"
    OUTPUT_VARIABLE part
    COMMAND_ERROR_IS_FATAL ANY)
  string(APPEND body "${part}")
endforeach()
if(NOT body MATCHES "<h1>([^<]*)</h1>")
  message(FATAL_ERROR "${SOURCES}: there is no title")
endif()
file(
  WRITE "${TARGET}"
  "<!DOCTYPE html>
<html lang=\"${LANGUAGE}\">
<head>
<meta charset=\"utf-8\">
<meta name=\"viewport\" content=\"width=device-width\">
<title>${CMAKE_MATCH_1}</title>
<style>
body { font: 1rem/1.5 sans-serif; max-width: 50rem; margin: 2rem auto; padding: 0 1rem; color: #222; background: #fff }
h1, h2, h3 { color: #21475a; line-height: 1.25 }
a { color: #1d5f7c }
table { border-collapse: collapse; display: block; overflow-x: auto }
th, td { border: 1px solid #bbb; padding: .25rem .5rem; text-align: left; vertical-align: top }
code, kbd { background: #eef3f5; padding: 0 .2rem; overflow-wrap: anywhere }
pre code { display: block; padding: .5rem; overflow-x: auto }
img { max-width: 100%; box-sizing: border-box; border: 1px solid #bbb }
@media (prefers-color-scheme: dark) {
  body { color: #ddd; background: #1c1f21 }
  h1, h2, h3, a { color: #8fc3da }
  code, kbd { background: #2b3135 }
}
</style>
</head>
<body>
${body}</body>
</html>
")
