" :compiler tolvane, then :make assembles the file and :cnext goes to the next faulty line.
let current_compiler = "tolvane"
CompilerSet makeprg=tolvane-run\ --check\ --\ %:S
CompilerSet errorformat=%E%f:%l:\ error:\ %m,%W%f:%l:\ warning:\ %m,%N%f:%l:\ note:\ %m,%I%f:%l:\ memo:\ %m
CompilerSet errorformat+=%E%f:\ error:\ %m,%W%f:\ warning:\ %m,%N%f:\ note:\ %m,%I%f:\ memo:\ %m,%C\ \ %m,%-G%.%#
