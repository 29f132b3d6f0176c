#include "SampleTree.h"

#include <cstdio>
#include <exception>

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fputs("usage: sample_network_maker FOLDER\n", stderr);
        return 2;
    }
    try {
        netrove::sample::MakeSampleTree(QString::fromLocal8Bit(argv[1]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "sample_network_maker: %s\n", failure.what());
        return 1;
    }
    return 0;
}
