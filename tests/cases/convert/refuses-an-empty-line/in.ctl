AC:PR
AC:OS
PN:A

PN:B
