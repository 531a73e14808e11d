@echo off
rem SPDX-License-Identifier: MPL-2.0
rem Removes the add-in of the current user.
rem   uninstall.cmd        the palettes and settings stay
rem   uninstall.cmd /all   they are removed, too
setlocal
set to=%APPDATA%\Huebrush
set server32=%SystemRoot%\System32\regsvr32.exe
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" set server32=%SystemRoot%\SysWOW64\regsvr32.exe
set server64=%SystemRoot%\System32\regsvr32.exe
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set server64=%SystemRoot%\Sysnative\regsvr32.exe

if exist "%to%\x86\huebrush.dll" call :take x86 "%server32%"
if exist "%to%\x64\huebrush.dll" call :take x64 "%server64%"

if not "%1"=="/all" goto done
if exist "%to%" rmdir /s /q "%to%"
reg delete "HKCU\Software\VB and VBA Program Settings\Huebrush" /f >nul 2>nul
:done
echo Huebrush je odebran. / Huebrush is removed.
exit /b 0

:take
%2 /u /s "%to%\%1\huebrush.dll"
del "%to%\%1\huebrush.dll"
goto :eof
