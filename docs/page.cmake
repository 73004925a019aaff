# cmake -DCMARK_GFM=... -DPAGE=x.md -DHTML=x.html -P page.cmake: one page as HTML. Links to
# other pages lead to their HTML; those to files that are not installed become plain text.

execute_process(COMMAND ${CMARK_GFM} --to html -e table -e autolink ${PAGE}
                OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "<a href=\"\\.\\./[^\"]*\">(([^<]|<[^/]|</[^a])*)</a>" "\\1" body "${body}")
string(REGEX REPLACE "(<a href=\"[^\":#]*)\\.md([\"#])" "\\1.html\\2" body "${body}")
string(REGEX MATCH "<h1>([^\n]*)</h1>" title "${body}")
string(REGEX REPLACE "<[^>]*>" "" title "${title}")
file(WRITE ${HTML} "<!DOCTYPE html>
<html lang=\"en\">
<head>
<meta charset=\"utf-8\">
<meta name=\"viewport\" content=\"width=device-width\">
<title>${title}</title>
<style>
body { max-width: 48em; margin: 2em auto; padding: 0 1em; font-family: sans-serif; line-height: 1.5 }
img { max-width: 100% }
table { border-collapse: collapse }
th, td { border: 1px solid #bbb; padding: 0.2em 0.5em; text-align: left; vertical-align: top }
pre { overflow-x: auto; padding: 0.5em; background: #f4f4f4 }
</style>
</head>
<body>
${body}</body>
</html>
")
