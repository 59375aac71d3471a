#!/bin/bash
# docs/commands.md is what script/commands makes of the sections as they are.
#
#     commands.sh PROGRAM      the built textcfg-commands
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

fresh=$("$root/script/commands" "$1") || give_up "script/commands failed"
diff "$root/docs/commands.md" - <<<"$fresh" || found "docs/commands.md is not what script/commands prints"
conclude
