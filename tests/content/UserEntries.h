#ifndef IPC2581_TESTS_CONTENT_USERENTRIES_H
#define IPC2581_TESTS_CONTENT_USERENTRIES_H

#include <initializer_list>
#include <memory>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/EntryUser.h"

namespace ipc2581::tests {

using Entry = CIPC2581_Content_DictionaryUser_EntryUser;
using Circle = CIPC2581_DicDraw_Circle;

inline std::unique_ptr<Entry> NewEntry(const char * id, std::initializer_list<double> diameters = {})
{
    auto entry = std::make_unique<Entry>();
    entry->ID = id;
    for (const double diameter : diameters) {
        auto circle = std::make_unique<Circle>();
        circle->Diameter = diameter;
        entry->DrawObjArray->Add(circle.release());
    }
    return entry;
}

}  // namespace ipc2581::tests

#endif
