b asl
