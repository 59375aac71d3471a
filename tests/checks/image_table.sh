#!/bin/bash
# docs/image.md is what script/image-table makes of the record as it is, and the list of fields agrees with the compiled
# layout.
#
#     image_table.sh FIELDS      the built textcfg-fields
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

fresh=$("$root/script/image-table" "$1") || give_up "script/image-table failed"
diff "$root/docs/image.md" - <<<"$fresh" || found "docs/image.md is not what script/image-table prints"
conclude
