#!/bin/sh
# Remakes the example projects examples/*.tsr, one fresh run of tessara-cli for each, so
# that a project holds only what its own chip was given. Run from the top folder of the
# source tree; TESSARA_CLI names the program if it is not on PATH.
# Times are picked from their lists in the scripts: a project keeps the index of the list
# item, not a typed text.
set -e
cli=${TESSARA_CLI:-tessara-cli}
for script in examples/project_*.txt; do
  "$cli" run "$script"
done
