@echo off
rem SPDX-License-Identifier: MPL-2.0
rem Installs the add-in for the current user.
rem   install.cmd          for Word 97 and 2000; in newer versions one command stays disabled
rem   install.cmd /newer   all commands, in newer versions, too
setlocal
set from=%~dp0
set to=%APPDATA%\Huebrush
set failed=

rem On a 64-bit Windows Word may be either; on an older one there is only one kind of program.
set both=
if "%PROCESSOR_ARCHITECTURE%"=="AMD64" set both=yes
if "%PROCESSOR_ARCHITEW6432%"=="AMD64" set both=yes
set server32=%SystemRoot%\System32\regsvr32.exe
if "%both%"=="yes" set server32=%SystemRoot%\SysWOW64\regsvr32.exe
set server64=%SystemRoot%\System32\regsvr32.exe
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set server64=%SystemRoot%\Sysnative\regsvr32.exe

if "%both%"=="yes" call :put x64 "%server64%"
if exist "%server32%" call :put x86 "%server32%"

if "%1"=="/newer" reg add "HKCU\Software\VB and VBA Program Settings\Huebrush\Host" /v TestedVersion /d 16.0 /f >nul
if not "%failed%"=="" goto failed
echo Huebrush je nainstalovan. / Huebrush is installed.
exit /b 0

:failed
echo Instalace se nezdarila. / The installation has failed.
exit /b 1

rem What is there of the user's palettes stays.
:put
if not exist "%to%\%1\Data" mkdir "%to%\%1\Data"
copy /y "%from%%1\huebrush.dll" "%to%\%1\huebrush.dll" >nul
if errorlevel 1 set failed=yes
if not exist "%to%\%1\Data\fill.mdb" copy "%from%Data\fill.mdb" "%to%\%1\Data\fill.mdb" >nul
%2 /s "%to%\%1\huebrush.dll"
if errorlevel 1 set failed=yes
goto :eof
