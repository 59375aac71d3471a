#include "app/run.h"

int main(int argc, char **argv) { return textcfgMain(argc, argv); }
