#include "platform/host/store_export.h"

int main(int argc, char **argv) { return storeExportMain(argc, argv); }
