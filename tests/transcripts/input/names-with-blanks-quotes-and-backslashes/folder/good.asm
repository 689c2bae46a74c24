P       START
        OUT     X,L
        RET
X       DC      'abc'
L       DC      3
        END
