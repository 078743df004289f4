@echo off
rem Lo que instalar.cmd y desinstalar.cmd hacen: registrar.cmd registra^|quita [/usuario]
setlocal
set OPCIONES=
set PARA=para todos los usuarios
if /i "%~2" == "/usuario" set OPCIONES=/n /i:user
if /i "%~2" == "/usuario" set PARA=para este usuario
if "%~1" == "quita" set OPCIONES=/u %OPCIONES%

rem regsvr32 de los bits de cada DLL, corra este archivo en 32 o en 64 bits.
set DE_64=
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" set DE_64=%SystemRoot%\System32
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set DE_64=%SystemRoot%\Sysnative
set DE_32=%SystemRoot%\System32
if not "%DE_64%" == "" set DE_32=%SystemRoot%\SysWOW64

set HECHO=Registrado
if "%~1" == "quita" set HECHO=Sin registro
if "%DE_64%" == "" goto bits32
"%DE_64%\regsvr32.exe" /s %OPCIONES% "%~dp0bin64\TOLVEX.dll"
if errorlevel 1 goto falla64
echo %HECHO% %PARA%: %~dp0bin64\TOLVEX.dll

:bits32
"%DE_32%\regsvr32.exe" /s %OPCIONES% "%~dp0bin32\TOLVEX.dll"
if errorlevel 1 goto falla32
echo %HECHO% %PARA%: %~dp0bin32\TOLVEX.dll
exit /b 0

:falla64
echo No se pudo con %~dp0bin64\TOLVEX.dll
goto falla
:falla32
echo No se pudo con %~dp0bin32\TOLVEX.dll
:falla
echo Abra esta ventana como administrador, o use la opción /usuario. La causa la dice:
echo   regsvr32 %OPCIONES% TOLVEX.dll
exit /b 1
