@echo off
rem Quita el registro de los componentes de esta carpeta, con la misma opción con que se registraron:
rem
rem   desinstalar.cmd [/usuario]
setlocal
call "%~dp0registrar.cmd" quita %1
