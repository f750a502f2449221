AC:PR   
UL:M   
AC:OS   
PN:A   
YC:1   
XC:2   
ZC:3   
