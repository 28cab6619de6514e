// Pens and device contexts: who owns a handle decides who deletes it.
#include <gtest/gtest.h>

#include "toolkit.h"

namespace {

TEST(Gdi, SelectGivesBackThePreviousPenWithoutOwningIt)
{
    HDC memory = CreateCompatibleDC(nullptr);
    ASSERT_NE(memory, nullptr);
    CDC* dc = CDC::FromHandle(memory);
    CPen red(PS_SOLID, 1, RGB(255, 0, 0));
    ASSERT_NE(red.m_hObject, nullptr);

    HGDIOBJ original = GetCurrentObject(memory, OBJ_PEN);
    CPen* old = dc->SelectObject(&red);
    ASSERT_NE(old, nullptr);
    EXPECT_EQ(old->m_hObject, original);
    EXPECT_EQ(GetCurrentObject(memory, OBJ_PEN), red.m_hObject);
    EXPECT_EQ(dc->SelectObject(old)->m_hObject, red.m_hObject);

    // Temporaries are reused as the ring goes round and never delete.
    HPEN dotted = CreatePen(PS_DOT, 1, 0);
    for (int i = 0; i < 100; ++i)
        CPen::FromHandle(dotted);
    EXPECT_EQ(GetObjectType(dotted), static_cast<DWORD>(OBJ_PEN));
    DeleteObject(dotted);
    DeleteDC(memory);
}

TEST(Gdi, AttachedObjectIsDeletedOnceByItsOwner)
{
    HPEN pen = CreatePen(PS_SOLID, 2, 0);
    {
        CGdiObject object;
        EXPECT_TRUE(object.Attach(pen));
        EXPECT_FALSE(object.Attach(GetStockObject(BLACK_PEN)));  // holds one already
        EXPECT_TRUE(object.DeleteObject());
        EXPECT_EQ(GetObjectType(pen), 0u);
        EXPECT_FALSE(object.DeleteObject());
    }

    HGDIOBJ owned;
    {
        CPen scoped(PS_SOLID, 1, 0);
        owned = scoped.m_hObject;
        EXPECT_EQ(GetObjectType(owned), static_cast<DWORD>(OBJ_PEN));
    }
    EXPECT_EQ(GetObjectType(owned), 0u);
}

}  // namespace
