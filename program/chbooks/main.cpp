#include <iostream>

#include "tool/tool.h"

int main(int argc, char** argv) { return chengheng::runTool(argc, argv, std::cout, std::cerr); }
