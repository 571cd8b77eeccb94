@echo off
rem Packs the files named by the resource lists in vnr\ into <folder>.vnp.
rem Started by the editor in the output folder, beside MakeVNP.exe.
cd /d "%~dp0"
MakeVNP.exe
