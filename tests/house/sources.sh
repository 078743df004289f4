#!/bin/sh
# Lists the C++ sources of the project, from its folder.
find [!.]* -name 'build*' -prune -o -name '*.[ch]pp' -print
