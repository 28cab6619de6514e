// The other process of the CapSection test: opens the section that the
// test describes on its command line, answers in it, and lets go, which
// tells the test's window.
#include <cstdio>
#include <cstring>

#include "zvopt32.h"

int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    CapSection* section = new CapSection(argv[1]);
    if (section->view == nullptr) {
        delete section;
        return 3;
    }
    char* bytes = static_cast<char*>(section->view);
    int seen = std::strcmp(bytes, "from owner") == 0;
    std::strcpy(bytes + 64, "from peer");
    delete section;
    return seen ? 0 : 4;
}
