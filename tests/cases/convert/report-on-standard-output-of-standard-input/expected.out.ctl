AC:PR
UL:M
VR:Tarvek Translator {version}
DT:02/02/2026
AC:OS
PN:A
YC:1.0000
XC:2.0000
ZC:3.0000
