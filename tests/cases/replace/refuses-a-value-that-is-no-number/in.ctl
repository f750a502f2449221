PN:1
XC:abc
