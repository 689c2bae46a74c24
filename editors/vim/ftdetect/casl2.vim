autocmd BufNewFile,BufRead *.cas,*.casl,*.asl setfiletype casl2
