; An installer with the usual wizard window, which carries what the setup carries: the peer of the dialog's start.
; makensis -DOUT=wizard.exe -DPACKAGE=Velquin.msi -DSKINS=folder wizard.nsi
Unicode true
Target amd64-unicode
Name "Wizard"
OutFile "${OUT}"
RequestExecutionLevel admin
InstallDir "$PROGRAMFILES64\Wizard"
Page directory
Page instfiles
Section
  SetOutPath $INSTDIR
  File "${PACKAGE}"
  File "${SKINS}/*.json"
SectionEnd
