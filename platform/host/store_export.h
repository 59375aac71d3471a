/// Writing the built-in store out as files, so that people have something to start from.
#pragma once

/// The program `textcfg-store`: writes the built-in store to the folder that its one word names, or completes what an
/// interrupted run left there. Returns its exit status: 0 done, 1 failed (told on standard error, and no file that it
/// made is left), 2 words not understood.
int storeExportMain(int argc, char **argv);
