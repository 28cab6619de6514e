// zvconv --print TAGFILE IMAGE...: every image on the default printer, one
// page each, where the print tags of the tag file put it ("PRTLEFT",
// "PRTTOP", "PRNW", "PRNH" in "PRNUNITS", as the print dialog and its
// options page leave them) and with their print options applied.
#include "print_batch.h"

#include <windows.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "okaio32.h"
#include "okamod32.h"
#include "print_job.h"
#include "tag_file.h"
#include "zvopt32.h"
#include "zvwio32.h"

int PrintBatch(int argc, char** argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: zvconv --print TAGFILE IMAGE...\n");
        return 2;
    }
    std::ifstream in(argv[2], std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "zvconv: cannot read the tag file: %s\n", argv[2]);
        return 1;
    }
    std::ostringstream text;
    text << in.rdbuf();
    std::vector<zvconv::TagLine> lines;
    std::vector<zvconv::TagFileError> errors;
    zvconv::ParseTagFile(text.str(), &lines, &errors);
    for (const auto& error : errors)
        std::fprintf(stderr, "zvconv: %s:%d: %s\n", argv[2], error.line, error.message.c_str());
    if (!errors.empty())
        return 1;

    // The options live in a set of this run only, not in a stored place.
    TagSet tags;
    for (const auto& line : lines)
        if (!line.wildcard)
            ZvSetTag(&tags, line.key.c_str(), line.value.c_str());
    HDC printer = GetPrinterDC(nullptr);
    if (printer == nullptr) {
        std::fprintf(stderr, "zvconv: no printer: this machine has no default printer\n");
        return 1;
    }
    OKAMOD formats(nullptr);
    int status = 0;
    for (int i = 3; i < argc; ++i) {
        // Each page is named after its file, without folder or extension.
        char name[MAX_PATH] = {};
        ZvSplitPath(argv[i], nullptr, name, nullptr);
        const short result = PrintImageFile(printer, &tags, &formats, argv[i], name);
        std::printf("print:   %s: %s (%d)\n", argv[i], result == 0 ? "printed" : "not printed", result);
        if (result != 0)
            status = 1;
    }
    DeleteDC(printer);
    return status;
}
