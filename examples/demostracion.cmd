@echo off
rem Hace en Windows una empresa de prueba con su base de datos, su llave y sus documentos, y deja lista su carpeta para
rem que cualquiera de los programas de ejemplo emita en ella:
rem
rem   demostracion.cmd [CARPETA]
rem
rem CARPETA no puede llevar blancos; sin ella es C:\TOLVEX-demo. tolvex.exe debe estar junto a este archivo, en la
rem carpeta de arriba o donde se instala; openssl.exe, ahí o en el PATH.
setlocal
set CARPETA=%~1
if "%CARPETA%" == "" set CARPETA=%SystemDrive%\TOLVEX-demo
set TOLVEX=
set OPENSSL=
for %%i in (openssl.exe) do set OPENSSL=%%~dp$PATH:i
for %%i in ("%~dp0..\bin32\" "%~dp0..\" "%~dp0") do if exist "%%~itolvex.exe" set TOLVEX=%%~i
if not "%PROCESSOR_ARCHITECTURE%%PROCESSOR_ARCHITEW6432%" == "x86" if exist "%~dp0..\bin64\tolvex.exe" set TOLVEX=%~dp0..\bin64\
for %%i in ("%~dp0..\" "%~dp0") do if exist "%%~iopenssl.exe" set OPENSSL=%%~i
if "%TOLVEX%" == "" echo Falta tolvex.exe junto a %~nx0 o en la carpeta de arriba.& exit /b 1
if "%OPENSSL%" == "" echo Falta openssl.exe junto a %~nx0, en la carpeta de arriba o en el PATH.& exit /b 1

set PATH=%OPENSSL%;%PATH%
"%TOLVEX%tolvex.exe" demo --carpeta "%CARPETA%"
if errorlevel 1 exit /b 1

rem El componente ejecuta el openssl.exe de la carpeta de trabajo, que puede necesitar sus bibliotecas.
copy /y "%OPENSSL%openssl.exe" "%CARPETA%" > nul
if exist "%OPENSSL%lib*.dll" copy /y "%OPENSSL%lib*.dll" "%CARPETA%" > nul

echo.
echo Con TOLVEX.dll registrado, emita desde un programa:
echo   cscript //nologo "%~dp0vbscript\factura.vbs" %CARPETA%
