PN:1
