@echo off
rem grade [-l en|ja] NUMBER [FILE]: runs a solution of an exercise with each of its inputs and compares what it prints.
rem FILE is my.txt in the exercise's folder if it is not given. TOLVANE_RUN may name the program.
setlocal
set "here=%~dp0"
set "run=%TOLVANE_RUN%"
if not defined run if exist "%here%..\tolvane-run.exe" set "run=%here%..\tolvane-run.exe"
if not defined run set "run=tolvane-run.exe"
set "language="
if "%~1"=="-l" set "language=-l %~2"
if "%~1"=="-l" shift & shift
set "number=0%~1"
set "folder="
pushd "%here%"
for /d %%d in (%number:~-2%-*) do set "folder=%here%%%d"
popd
if not defined folder (
  echo Usage: grade [-l en^|ja] NUMBER [FILE]
  exit /b 4
)
set "file=%~2"
if not defined file set "file=%folder%\my.txt"
"%run%" %language% --grade "%folder%" -- "%file%"
