// Sections shared by name: unique names, and the host's side of a section
// that another process made.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "child_process.h"
#include "zvopt32.h"

namespace {

struct OwnerWindow {
    HWND window = CreateWindowExA(0, "STATIC", "owner", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ~OwnerWindow() { DestroyWindow(window); }
};

std::string Describe(unsigned long id, HWND owner, const std::string& name)
{
    char head[17];
    std::snprintf(head, sizeof head, "%08lX%08lX", id, static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(owner)));
    return head + name;
}

// The id of the first 2026 message waiting for window, or -1.
long TakeReleaseMessage(HWND window)
{
    MSG msg;
    if (PeekMessageA(&msg, window, ZV_WM_SECTION_RELEASED, ZV_WM_SECTION_RELEASED, PM_REMOVE)) {
        EXPECT_EQ(msg.wParam, 0u);
        return static_cast<long>(msg.lParam);
    }
    return -1;
}

HANDLE MakeSection(const char* name, DWORD size = 4096)
{
    return CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, size, name);
}

TEST(CreateUniqueStatusSectionName, SkipsNamesInUse)
{
    // Names are shared by every process of the session: a stem of this
    // process's own, so that no other test takes a name meant to be free.
    char stem[32];
    std::snprintf(stem, sizeof stem, "ZvNames%lu_", GetCurrentProcessId());
    HANDLE first = MakeSection((std::string(stem) + "0").c_str());
    HANDLE second = MakeSection((std::string(stem) + "1").c_str());
    char name[32];
    std::strcpy(name, stem);
    ASSERT_EQ(CreateUniqueStatusSectionName(name, 30), 0);
    EXPECT_EQ(std::string(name), std::string(stem) + "2");
    CloseHandle(first);
    CloseHandle(second);

    // Once the names are free again the counter starts over.
    std::strcpy(name, stem);
    ASSERT_EQ(CreateUniqueStatusSectionName(name, 30), 0);
    EXPECT_EQ(std::string(name), std::string(stem) + "0");
}

TEST(CreateUniqueStatusSectionName, ANameTooLongForTheCallersBufferLeavesTheStem)
{
    std::string stem(28, 's');
    char name[32];
    std::strcpy(name, stem.c_str());
    EXPECT_EQ(CreateUniqueStatusSectionName(name, 29), -250);
    EXPECT_EQ(std::string(name), stem);
    EXPECT_EQ(CreateUniqueStatusSectionName(name, 30), 0);
    EXPECT_EQ(std::string(name), stem + "0");
    // A stem that leaves no room for the counter is refused, not looped on.
    char full[40] = "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx";
    EXPECT_EQ(CreateUniqueStatusSectionName(full, 40), -250);
}

TEST(CapSection, OpensTheNamedSectionAndTellsTheOwnerWithItsId)
{
    OwnerWindow owner;
    HANDLE section = MakeSection("ZvCapSectionTestA");
    ASSERT_NE(section, nullptr);
    std::string text = Describe(0x2A, owner.window, "ZvCapSectionTestA");
    {
        CapSection cap(text.data());
        ASSERT_NE(cap.view, nullptr);
        ASSERT_NE(cap.wideName, nullptr);
        EXPECT_EQ(std::wstring(cap.wideName), L"ZvCapSectionTestA");
        EXPECT_EQ(TakeReleaseMessage(owner.window), -1);
    }
    EXPECT_EQ(TakeReleaseMessage(owner.window), 0x2A);
    CloseHandle(section);
}

TEST(CapSection, AMissingSectionStillTellsALiveOwnerButNoOneElse)
{
    OwnerWindow owner;
    std::string text = Describe(7, owner.window, "ZvNoSuchSection");
    {
        CapSection cap(text.data());
        EXPECT_EQ(cap.view, nullptr);
    }
    EXPECT_EQ(TakeReleaseMessage(owner.window), 7);

    // An owner of 0, a window that is gone, a description too short to
    // name one: no message.
    HWND gone = CreateWindowExA(0, "STATIC", "gone", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    DestroyWindow(gone);
    std::string noOwner = Describe(8, nullptr, "ZvNoSuchSection");
    std::string goneOwner = Describe(9, gone, "ZvNoSuchSection");
    char shortText[] = "0000000A0001";
    { CapSection a(noOwner.data()); EXPECT_EQ(a.owner, nullptr); }
    { CapSection b(goneOwner.data()); }
    {
        CapSection c(shortText);
        EXPECT_EQ(c.id, 0u);
        EXPECT_EQ(c.view, nullptr);
    }
    EXPECT_EQ(TakeReleaseMessage(owner.window), -1);
}

TEST(CapSection, SeenFromASecondProcess)
{
    OwnerWindow owner;
    char sectionName[64];
    std::snprintf(sectionName, sizeof sectionName, "ZvCapPeer%lu", GetCurrentProcessId());
    HANDLE section = MakeSection(sectionName);
    ASSERT_NE(section, nullptr);
    char* bytes = static_cast<char*>(MapViewOfFile(section, FILE_MAP_WRITE, 0, 0, 0));
    ASSERT_NE(bytes, nullptr);
    std::strcpy(bytes, "from owner");

    char peer[MAX_PATH];
    GetModuleFileNameA(nullptr, peer, sizeof peer);
    std::strcpy(std::strrchr(peer, '\\') + 1, "capsection_peer.exe");
    std::string command = std::string("\"") + peer + "\" " + Describe(0x1234, owner.window, sectionName);
    PROCESS_INFORMATION process = {};
    ASSERT_TRUE(zvtest::StartProcess(peer, command, &process));
    EXPECT_EQ(zvtest::FinishProcess(process), 0u);
    EXPECT_STREQ(bytes + 64, "from peer");
    // The peer posted before it ended; the message may still be on its way.
    long id = TakeReleaseMessage(owner.window);
    for (ULONGLONG until = GetTickCount64() + 5000; id == -1 && GetTickCount64() < until;) {
        MsgWaitForMultipleObjectsEx(0, nullptr, 100, QS_POSTMESSAGE, MWMO_INPUTAVAILABLE);
        id = TakeReleaseMessage(owner.window);
    }
    EXPECT_EQ(id, 0x1234);
    UnmapViewOfFile(bytes);
    CloseHandle(section);
}

}  // namespace
