#!/bin/bash
# docs/image.md is what script/image-table makes of the record as it stands.
. "$(dirname -- "${BASH_SOURCE[0]}")/common.sh"

fresh=$("$root/script/image-table") || give_up "script/image-table failed"
diff "$root/docs/image.md" - <<<"$fresh" || found "docs/image.md is not what script/image-table prints"
conclude
