c asl
