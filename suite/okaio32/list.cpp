// The list service: a doubly linked list of nodes with a payload.
//
// A node's pointer is the address of its payload; the links stand in front
// of it. So a caller may use the node pointer as its record directly, or go
// through OkiNodeData, to the same effect.
#include <windows.h>

#include "okaio32.h"

struct OkiList {
    OkiNode* head;
    OkiNode* tail;
};

namespace {

struct Links {
    OkiNode* prev;
    OkiNode* next;
    OkiList* owner;
    void* pad;  // keeps the payload aligned to twice a pointer
};

Links* LinksOf(OkiNode* node)
{
    return reinterpret_cast<Links*>(node) - 1;
}

}  // namespace

OKAIO32_API OkiList* OkiCreateList()
{
    return static_cast<OkiList*>(OkiAllocSMem(sizeof(OkiList)));
}

OKAIO32_API void OkiDestroyList(OkiList* list)
{
    if (!list)
        return;
    for (OkiNode* node = list->head; node;) {
        OkiNode* next = LinksOf(node)->next;
        OkiFreeSMem(LinksOf(node));
        node = next;
    }
    OkiFreeSMem(list);
}

OKAIO32_API OkiNode* OkiCreateNode(unsigned long size)
{
    auto* links = static_cast<Links*>(OkiAllocSMem(sizeof(Links) + size));
    return links ? reinterpret_cast<OkiNode*>(links + 1) : nullptr;
}

OKAIO32_API OkiNode* OkiExtractNode(OkiList* list, OkiNode* node)
{
    if (!list || !node || LinksOf(node)->owner != list)
        return nullptr;
    Links* l = LinksOf(node);
    if (l->prev)
        LinksOf(l->prev)->next = l->next;
    else
        list->head = l->next;
    if (l->next)
        LinksOf(l->next)->prev = l->prev;
    else
        list->tail = l->prev;
    l->prev = l->next = nullptr;
    l->owner = nullptr;
    return node;
}

OKAIO32_API void OkiDestroyNode(OkiNode* node)
{
    if (!node)
        return;
    // A node still in a list is taken out first, so the list never points
    // at freed memory.
    if (OkiList* owner = LinksOf(node)->owner)
        OkiExtractNode(owner, node);
    OkiFreeSMem(LinksOf(node));
}

OKAIO32_API void OkiAddTail(OkiList* list, OkiNode* node)
{
    if (!list || !node)
        return;
    if (LinksOf(node)->owner)
        OkiExtractNode(LinksOf(node)->owner, node);
    Links* l = LinksOf(node);
    l->owner = list;
    l->prev = list->tail;
    l->next = nullptr;
    if (list->tail)
        LinksOf(list->tail)->next = node;
    else
        list->head = node;
    list->tail = node;
}

OKAIO32_API OkiNode* OkiNextNode(OkiList* list, OkiNode* node)
{
    if (!list)
        return nullptr;
    if (!node)
        return list->head;
    return LinksOf(node)->owner == list ? LinksOf(node)->next : nullptr;
}

OKAIO32_API void* OkiNodeData(OkiNode* node)
{
    return node;
}
