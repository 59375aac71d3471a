#include "inspect/command_line.h"

int main(int argc, char **argv) { return inspect::commandLine(argc, argv); }
