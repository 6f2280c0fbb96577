#include "import/sections/References.h"

namespace ipc2581::detail {
namespace {

std::string_view WordOf(NameKind kind)
{
    switch (kind) {
    case NameKind::Bom:
        return "bill of materials";
    case NameKind::Color:
        return "color";
    case NameKind::Figure:
        return "figure";
    case NameKind::Layer:
        return "layer";
    case NameKind::Package:
        return "package";
    case NameKind::StackupGroup:
        return "stackup group";
    default:
        return "step";
    }
}

bool StandsInEcad(NameKind kind)
{
    return kind == NameKind::Layer || kind == NameKind::Package || kind == NameKind::StackupGroup ||
           kind == NameKind::Step;
}

}  // namespace

void References::Declare(NameKind kind, std::string_view name)
{
    m_names[static_cast<std::size_t>(kind)].emplace(name);
}

bool References::Has(NameKind kind, std::string_view name) const
{
    return m_names[static_cast<std::size_t>(kind)].contains(name);
}

void References::Await(NameKind kind, std::string_view name, std::size_t line)
{
    if (!name.empty() && !Has(kind, name)) {
        m_awaited.push_back({kind, false, std::string(name), line});
    }
}

void References::AwaitLayerOrGroup(std::string_view name, std::size_t line)
{
    if (!name.empty() && !Has(NameKind::Layer, name)) {
        m_awaited.push_back({NameKind::Layer, true, std::string(name), line});
    }
}

bool References::IsThere(const Awaited & reference) const
{
    return Has(reference.kind, reference.name) || (reference.mayBeGroup && Has(NameKind::StackupGroup, reference.name));
}

void References::TellDangling(bool hasEcad, LossRecorder & losses) const
{
    for (const Awaited & reference : m_awaited) {
        if ((hasEcad || !StandsInEcad(reference.kind)) && !IsThere(reference)) {
            losses.AddDangling(reference.line, WordOf(reference.kind), reference.name);
        }
    }
}

}  // namespace ipc2581::detail
