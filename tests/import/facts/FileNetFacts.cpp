#include <set>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "tests/import/facts/FileFactParts.h"
#include "tests/import/facts/Values.h"

namespace ipc2581::facts {
namespace {

using Node = pugi::xml_node;

class Collector {
public:
    Collector(const BoardFile & file, Facts & facts) : m_file(file), m_facts(facts) {}

    void Collect()
    {
        AddNets();
        AddPhyNets();
    }

private:
    void AddNets()
    {
        if (!m_file.Step().child("LogicalNet")) {
            AddNetsOfSets();
            return;
        }
        for (const Node net : m_file.Step().children("LogicalNet")) {
            const std::string name = TextOf(net, "name");
            AddFact(m_facts, "net", {{"name", name}});
            for (const Node pin : net.children()) {
                const std::string_view element = pin.name();
                if (element == "PinRef" || element == "LogicalNetPin") {
                    AddNetPin(name, pin);
                }
            }
        }
    }

    void AddNetPin(const std::string & net, Node pin)
    {
        AddFact(m_facts, "net-pin",
                {{"net", net}, {"componentRef", TextOf(pin, "componentRef")}, {"pin", TextOf(pin, "pin")}});
    }

    // Each net and each pin once, although every layer names them.
    void AddNetsOfSets()
    {
        std::set<std::string> nets;
        std::set<std::string> pins;
        for (const Node feature : m_file.Step().children("LayerFeature")) {
            for (const Node set : feature.children("Set")) {
                const std::string net = TextOf(set, "net");
                if (net.empty()) {
                    continue;
                }
                if (nets.insert(net).second) {
                    AddFact(m_facts, "net", {{"name", net}});
                }
                AddPinsOfSet(net, set, pins);
            }
        }
    }

    void AddPinsOfSet(const std::string & net, Node set, std::set<std::string> & known)
    {
        for (const Node pad : set.children("Pad")) {
            for (const Node pin : pad.children("PinRef")) {
                const std::string key = net + '\n' + TextOf(pin, "componentRef") + '\n' + TextOf(pin, "pin");
                if (known.insert(key).second) {
                    AddNetPin(net, pin);
                }
            }
        }
    }

    void AddPhyNets()
    {
        for (const Node group : m_file.Step().children("PhyNetGroup")) {
            for (const Node net : group.children("PhyNet")) {
                AddFact(m_facts, "phynet", {{"name", TextOf(net, "name")}});
                for (const Node point : net.children("PhyNetPoint")) {
                    AddPhyNetPoint(TextOf(net, "name"), point);
                }
            }
        }
    }

    void AddPhyNetPoint(const std::string & net, Node point)
    {
        AddFact(m_facts, "phynet-point",
                {{"net", net},
                 {"layerRef", TextOf(point, "layerRef")},
                 {"netNode", TextOf(point, "netNode")},
                 {"exposure", TextOf(point, "exposure")},
                 {"via", FlagWord(FlagOf(point, "via"))},
                 {"test", FlagWord(FlagOf(point, "test"))},
                 {"shape", TextOf(point.child("StandardPrimitiveRef"), "id")}},
                {{"x", NumberOf(point, "x")}, {"y", NumberOf(point, "y")}});
    }

    const BoardFile & m_file;
    Facts & m_facts;
};

}  // namespace

void AddNetFacts(const BoardFile & file, Facts & facts)
{
    Collector(file, facts).Collect();
}

}  // namespace ipc2581::facts
