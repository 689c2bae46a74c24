# The dialogues of transcripts as inputs of their target in the folder `to`: what is typed and the files that are there,
# in the form that the target tells; see tests/README.md for that of transcripts.
function words(text, list,    n, word) { # parts a line; words with blanks stand in quotation marks
    for (n = 0; match(text, /^ *("([^"\\]|\\.)*"|[^ ]+)/); text = substr(text, RLENGTH + 1)) {
        word = substr(text, 1, RLENGTH)
        sub(/^ */, "", word)
        if (word ~ /^"/) word = substr(word, 2, length(word) - 2)
        gsub(/\\"/, "\"", word); gsub(/\\t/, "\t", word); gsub(/\\\\/, "\\", word)
        list[++n] = word
    }
    return n
}
function lines(list, from, n,    text) {
    for (text = ""; from <= n; ++from) text = text list[from] "\n"
    return text
}
function settings(list, n) { return (n > 2 || list[2] !~ /^\[/ ? "[Mode]\n" : "") lines(list, 2, n) }
function save(    file, name) {
    file = sprintf("%s/dialogue-%03d", to, ++dialogues)
    printf "%s", typed > file
    for (name in files) printf "%c%s%c%s", 0, name, 0, files[name] > file
    close(file)
}
FNR == 1 { split("", files); typed = open = "" }
/^\$ / {
    n = words(substr($0, 3), list)
    open = ""
    if (list[1] == "file") {
        files[list[2]] = n > 3 ? lines(list, 4, n) : ""
        if (n <= 3) open = list[2]
    }
    if (list[1] == "type") typed = lines(list, 2, n)
    if (list[1] == "settings" || list[1] == "run") files["tolvane_Win.ini"] = n > 1 ? settings(list, n) : ""
    if (list[1] == "settings" && n == 1) open = "tolvane_Win.ini"
    if (list[1] == "console" || list[1] == "run") save()
    next
}
open != "" { files[open] = files[open] $0 "\n" }
