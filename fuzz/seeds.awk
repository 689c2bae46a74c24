# The cases of books as source files of their own in the folder `to`; see tests/README.md for their form.
function save(text) {
    gsub(/\\t/, "\t", text); gsub(/\\s/, " ", text); gsub(/\\n/, "\n", text)
    file = sprintf("%s/%04d.txt", to, ++cases)
    printf "%s", text > file
    close(file)
}
function end() { if (whole != "") save(whole); whole = frame = ""; inside = 0 }
/^$/ || /^# / { end() }
/^(::|==) / { end(); inside = /^==/; if (!inside) { sub(/^:: (run: )?/, ""); gsub(/\//, "\n"); frame = $0 "\n" }; next }
{ sub(/ *(-->|==) .*/, "") }
inside && $0 != "" { whole = whole $0 "\n" }
frame != "" && $0 != "" { line = frame; gsub(/[\\&]/, "\\\\&"); sub(/\*/, $0, line); save(line) }
END { end() }
