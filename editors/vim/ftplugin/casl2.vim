" A source in UTF-8 is saved with a mark (BOM): a few Japanese characters without one could be Shift_JIS as well.
if exists("b:did_ftplugin")
  finish
endif
let b:did_ftplugin = 1

augroup casl2
  autocmd! BufWritePre <buffer>
  autocmd BufWritePre <buffer> if index(["", "utf-8"], &l:fileencoding) >= 0 | setlocal fileencoding=utf-8 bomb | endif
augroup END
let b:undo_ftplugin = "autocmd! casl2 BufWritePre <buffer>"
