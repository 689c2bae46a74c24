c asm
