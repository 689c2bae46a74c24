d asm
