" Vim syntax file: CASL II
if exists("b:current_syntax")
  finish
endif

syn case match

syn match casl2Label "^[A-Z][A-Z0-9]\{0,7}\>"
syn match casl2Number "=\?[+-]\?\<\d\+\>"
syn match casl2Number "=\?#[0-9A-F]\{4}\>"
syn region casl2String start="=\?'" skip="''" end="'" oneline
syn match casl2Comment ";.*$"

syn keyword casl2Register GR0 GR1 GR2 GR3 GR4 GR5 GR6 GR7
syn keyword casl2Directive START END DC DS
syn keyword casl2Macro IN OUT RPUSH RPOP
syn keyword casl2Instruction LD ST LAD ADDA SUBA ADDL SUBL AND OR XOR CPA CPL SLA SRA SLL SRL
syn keyword casl2Instruction JMI JNZ JZE JUMP JPL JOV PUSH POP CALL RET SVC NOP EXIT

hi def link casl2Label Identifier
hi def link casl2Number Number
hi def link casl2String String
hi def link casl2Comment Comment
hi def link casl2Register Type
hi def link casl2Directive PreProc
hi def link casl2Macro Macro
hi def link casl2Instruction Statement

let b:current_syntax = "casl2"
