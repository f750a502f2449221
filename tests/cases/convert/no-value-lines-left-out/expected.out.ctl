AC:PR
VR:Tarvek Translator {version}
DT:02/02/2026
AC:OS
PN:A
YC:1.0000
XC:2.0000
ZC:-99999.0000
