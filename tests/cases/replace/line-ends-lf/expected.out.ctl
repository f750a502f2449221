PN:2
YC:5
