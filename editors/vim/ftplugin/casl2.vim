" A source in UTF-8 is saved with a mark (BOM): a few Japanese characters without one could be Shift_JIS as well.
if exists("b:did_ftplugin")
  finish
endif
let b:did_ftplugin = 1

if &l:fileencoding ==# "" || &l:fileencoding ==# "utf-8"
  setlocal fileencoding=utf-8 bomb
endif
let b:undo_ftplugin = "setlocal bomb<"
