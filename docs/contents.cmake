# Writes the page PAGE as OUT, which stands beside the page's folder "help".
file(READ ${PAGE} text)
string(REGEX REPLACE "(href|src)=\"" "\\1=\"help/" text "${text}")
file(WRITE ${OUT} "${text}")
