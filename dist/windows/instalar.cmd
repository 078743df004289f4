@echo off
rem Registra los componentes de esta carpeta, que se queda donde está.
rem
rem   instalar.cmd             para todos los usuarios; pide permisos de administrador
rem   instalar.cmd /usuario    sólo para este usuario, sin permisos especiales
rem
rem desinstalar.cmd quita el registro; los archivos se borran después a mano.
setlocal
call "%~dp0registrar.cmd" registra %1
