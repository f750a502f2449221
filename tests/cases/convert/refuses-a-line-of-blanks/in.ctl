AC:PR
AC:OS
PN:A
   
