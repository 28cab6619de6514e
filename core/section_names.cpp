// Section names that no process uses yet. Needs only the kernel, so it
// builds whatever else of the suite is there.
#include <cstring>

#include "bounded_text.h"
#include "option_core.h"
#include "zvopt32.h"

extern "C" ZVOPT32_API short CreateUniqueStatusSectionName(char* name, int size)
{
    if (name == nullptr || size <= 0)
        return -250;
    for (unsigned long counter = 0;; ++counter) {
        char candidate[zv::kCandidateSize];
        // A stem too long for the counter to show would try one name forever.
        if (!zv::MakeSectionCandidate(name, counter, candidate))
            return -250;
        HANDLE taken = OpenFileMappingA(FILE_MAP_READ, FALSE, candidate);
        if (taken != nullptr) {
            CloseHandle(taken);
            continue;
        }
        if (std::strlen(candidate) >= static_cast<std::size_t>(size))
            return -250;
        zv::CopyBounded(name, static_cast<std::size_t>(size), candidate);
        return 0;
    }
}
