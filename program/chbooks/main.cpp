#include <csignal>
#include <iostream>

#include "tool/tool.h"

int main(int argc, char** argv) {
    // Whoever reads from a pipe may leave early; that is a failure to tell, not a death.
    std::signal(SIGPIPE, SIG_IGN);
    return chengheng::runTool(argc, argv, std::cout, std::cerr);
}
