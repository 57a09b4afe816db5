#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "data/engines/open_engine.h"
#include "tool/tool.h"

int main(int argc, char** argv) {
    // Whoever reads from a pipe may leave early; that is a failure to tell, not a death.
    std::signal(SIGPIPE, SIG_IGN);
    const std::vector<std::string> given(argv, argv + argc);
    std::vector<const char*> arguments;
    for (const std::string& argument : given) arguments.push_back(argument.c_str());
    for (int at = 1; at < argc; ++at) chengheng::hideServerPassword(argv[at]);
    return chengheng::runTool(argc, arguments.data(), std::cout, std::cerr);
}
