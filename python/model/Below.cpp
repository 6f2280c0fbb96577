#include "python/model/Below.h"

namespace ipc2581::python {
namespace {

template <typename Value>
void CopyValue(const void * from, void * to)
{
    *static_cast<Value *>(to) = *static_cast<const Value *>(from);
}

void CopyTexts(const void * from, void * to)
{
    const auto & source = *static_cast<const CStringArray *>(from);
    auto & target = *static_cast<CStringArray *>(to);
    target.RemoveAll();
    for (std::int64_t i = 0; i < source.GetSize(); ++i) {
        target.SetAtGrow(i, source.GetAt(i));
    }
}

void CopyMembers(const ClassRow & type, void * from, void * to);

void EmptyList(const ListRow & row, void * list)
{
    for (std::int64_t i = row.size(list) - 1; i >= 0; --i) {
        const OwnedObject element(row.at(list, i));
        row.removeAt(list, i);
    }
}

void CopyList(const ListRow & row, void * from, void * to)
{
    EmptyList(row, to);
    const std::int64_t count = row.size(from);
    for (std::int64_t i = 0; i < count; ++i) {
        const Found element = row.at(from, i);
        if (element.object != nullptr) {
            OwnedObject copy = DeepCopy(element);
            row.insert(to, row.size(to), row.asElement(copy.Get()));
            static_cast<void>(copy.Release());
        }
    }
}

void CopyMember(const MemberRow & member, void * from, void * to)
{
    switch (member.kind) {
    case FieldKind::Text:
        return CopyValue<CString>(from, to);
    case FieldKind::Texts:
        return CopyTexts(from, to);
    case FieldKind::Number:
        return CopyValue<double>(from, to);
    case FieldKind::Integer:
        return CopyValue<int>(from, to);
    case FieldKind::LongInteger:
        return CopyValue<std::int64_t>(from, to);
    case FieldKind::Flag:
        return CopyValue<bool>(from, to);
    case FieldKind::Point:
    case FieldKind::Part:
        return CopyMembers(member.type(), from, to);
    case FieldKind::List:
        return CopyList(*member.list, from, to);
    case FieldKind::HostPointer:
        return;
    }
}

void CopyMembers(const ClassRow & type, void * from, void * to)
{
    for (const MemberRow & member : type.members) {
        void * const source = member.address(from);
        void * const target = member.address(to);
        if (source != nullptr && target != nullptr) {
            CopyMember(member, source, target);
        }
    }
}

}  // namespace

void VisitAddresses(const Found & object, const AddressVisitor & visit)
{
    visit(object.object, object.type);
    for (const MemberRow & member : object.type->members) {
        if (member.type == nullptr && member.list == nullptr) {
            continue;
        }
        void * const address = member.address(object.object);
        if (address == nullptr) {
            continue;
        }
        if (member.type != nullptr) {
            VisitAddresses({address, &member.type()}, visit);
            continue;
        }
        visit(address, member.list);
        const std::int64_t count = member.list->size(address);
        for (std::int64_t i = 0; i < count; ++i) {
            const Found element = member.list->at(address, i);
            if (element.object != nullptr) {
                VisitAddresses(element, visit);
            }
        }
    }
}

OwnedObject DeepCopy(const Found & object)
{
    OwnedObject copy(*object.type);
    CopyMembers(*object.type, object.object, copy.Get().object);
    return copy;
}

}  // namespace ipc2581::python
