AC:PR
CM:lower case

AC:OS
PN:100
XC:12.5
FE:
AC:OS
PN:2
