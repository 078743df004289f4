#!/bin/sh
# The rooms of the code are those of the table in docs/architecture.md, and nothing includes a room above its own.
cd "$(dirname "$0")/../.." || exit
awk -f tests/house/rooms.awk docs/architecture.md $(tests/house/sources.sh)
