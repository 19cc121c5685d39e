@echo off
rem Runs all tests on this computer and writes report.txt beside this file.
setlocal
set "KRT_PLX_TEST_SOURCE_FOLDER=%~dp0sources"
set "writer=%~dp0x86_64\write_report.exe"
if not exist "%~dp0i686\write_report.exe" goto run
set "writer=%~dp0i686\write_report.exe"
if exist "%~dp0x86_64\write_report.exe" goto both
"%writer%" "%~dp0report.txt" "%~dp0i686"
goto done
:both
"%writer%" "%~dp0report.txt" "%~dp0x86_64" "%~dp0i686"
goto done
:run
"%writer%" "%~dp0report.txt" "%~dp0x86_64"
:done
if errorlevel 1 echo Something is wrong. Please send report.txt all the same.
if not errorlevel 1 echo All is well. Please send report.txt.
