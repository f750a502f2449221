CM:x
PN:1
