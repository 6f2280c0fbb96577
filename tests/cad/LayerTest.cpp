#include "ipc2581/cad/Layer.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/cad/CadData.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Layer = CIPC2581_Ecad_CadData_Layer;
using LayerArray = CIPC2581_Ecad_CadData_LayerArray;

// The four texts of a layer, in their order.
Texts FieldsOf(const Layer & layer)
{
    return {Str(layer.name), Str(layer.layerFunction), Str(layer.side), Str(layer.polarity)};
}

// The layer that a line gives.
Texts Read(std::string_view line)
{
    Lines lines({line});
    CIPC2581_Ecad_CadData data;
    data.ReadCadData(lines.File(), nullptr);
    EXPECT_EQ(data.m_arrLayer.GetSize(), 1) << line;
    EXPECT_EQ(data.m_arrLayer.GetAt(0)->m_nLayerId, 0);
    return FieldsOf(*data.m_arrLayer.GetAt(0));
}

Layer Filled()
{
    Layer layer;
    layer.m_nLayerId = 7;
    layer.name = "n";
    layer.layerFunction = "f";
    layer.side = "s";
    layer.polarity = "p";
    return layer;
}

TEST(Layer, HasItsDefaults)
{
    const Layer layer;
    EXPECT_EQ(layer.m_nLayerId, 0);
    EXPECT_EQ(FieldsOf(layer), (Texts{"", "", "", "POSITIVE"}));
}

TEST(Layer, HoldsItsFieldsInOrder)
{
    const Layer layer;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(layer.m_nLayerId), at(layer.name));
    EXPECT_LT(at(layer.name), at(layer.layerFunction));
    EXPECT_LT(at(layer.layerFunction), at(layer.side));
    EXPECT_LT(at(layer.side), at(layer.polarity));
}

TEST(Layer, HasItsOperationsInOrderAndNoBase)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Layer>);
    EXPECT_FALSE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Layer>));
    EXPECT_EQ(Slot(&Layer::Export), 2u);
    EXPECT_EQ(Slot(&Behind<Layer>::Next), 3u);
}

TEST(Layer, CopiesAllFields)
{
    Layer source = Filled();
    const Layer copy(source);
    Layer assigned;
    EXPECT_EQ(&(assigned = source), &assigned);
    source.name = "other";
    source.m_nLayerId = 1;
    for (const Layer * layer : {&copy, static_cast<const Layer *>(&assigned)}) {
        EXPECT_EQ(layer->m_nLayerId, 7);
        EXPECT_EQ(FieldsOf(*layer), (Texts{"n", "f", "s", "p"}));
    }
}

TEST(Layer, ReadsItsAttributes)
{
    const std::vector<std::pair<std::string_view, Texts>> rows = {
        {R"(<Layer name="L1" layerFunction="SIGNAL" side="TOP" polarity="NEGATIVE">)",
         {"L1", "SIGNAL", "TOP", "NEGATIVE"}},
        {R"(<Layer polarity="x" side="any" layerFunction="y z" name="a b" >)", {"a b", "y z", "any", "x"}},
        {R"(<Layer name="L1" layerFunction="SIGNAL" side="TOP"/>)", {"L1", "SIGNAL", "TOP", "POSITIVE"}},
        {"<Layer>", {"", "", "", "POSITIVE"}},
        {"<Layer />", {"", "", "", "POSITIVE"}},
        {R"(<Layer polarity="" >)", {"", "", "", ""}},
        {R"(<Layer filename="x" outside="y" >)", {"x", "", "y", "POSITIVE"}},
        {R"(<Layer layerFunction="name" side="polarity" >)", {"", "name", "polarity", "POSITIVE"}},
        {R"(<Layer name ="a" Side="b" kind="side" LayerFunction="c">)", {"", "", "", "POSITIVE"}},
        {R"(<Layer name="a" name="b">)", {"b", "", "", "POSITIVE"}},
        {R"(<Layer_name="t" >)", {"t", "", "", "POSITIVE"}},
        {R"(<Layer name="a/b" >)", {"ab", "", "", "POSITIVE"}},
    };
    for (const auto & [line, fields] : rows) {
        EXPECT_EQ(Read(line), fields) << line;
    }
}

TEST(Layer, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    const Texts words = {"name=", "layerFunction=", "side=", "polarity="};
    for (std::size_t earlier = 0; earlier < words.size(); ++earlier) {
        for (std::size_t later = earlier + 1; later < words.size(); ++later) {
            Texts expected = {"", "", "", "POSITIVE"};
            expected[earlier] = words[earlier] + "v";
            EXPECT_EQ(Read("<Layer " + words[later] + words[earlier] + R"("v" >)"), expected) << words[later];
        }
    }
}

TEST(Layer, WritesTwoLines)
{
    Layer layer = Filled();
    EXPECT_EQ(Exported(layer, 0),
              (Export{1, Joined({R"(   <Layer name="n" layerFunction="f" side="s" polarity="p">)", "   </Layer>"})}));
    Layer empty;
    EXPECT_EQ(Exported(empty, 2),
              (Export{1, Joined({R"(         <Layer name="" layerFunction="" side="" polarity="POSITIVE">)",
                                 "         </Layer>"})}));
}

TEST(LayerArray, IsAnOwningArrayWithAnExport)
{
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<Layer *, Layer *>, LayerArray>));
    EXPECT_EQ(Slot(&LayerArray::Export), 8u);
    EXPECT_EQ(Slot(&Behind<LayerArray>::Next), 9u);
}

class CountedLayer : public Layer {
public:
    explicit CountedLayer(int & deleted) : m_deleted(deleted) {}
    CountedLayer(const CountedLayer &) = delete;
    CountedLayer & operator=(const CountedLayer &) = delete;
    ~CountedLayer() override { ++m_deleted; }

private:
    int & m_deleted;
};

TEST(LayerArray, DeletesItsLayers)
{
    int deleted = 0;
    {
        LayerArray layers;
        layers.Add(new CountedLayer(deleted));
        layers.Add(nullptr);
        layers.Add(new CountedLayer(deleted));
    }
    EXPECT_EQ(deleted, 2);
}

TEST(LayerArray, FindsTheFirstLayerOfAnId)
{
    LayerArray layers;
    EXPECT_EQ(layers.FindLayer(0), nullptr);
    for (const int id : {3, 5, 5}) {
        auto * layer = new Layer;
        layer->m_nLayerId = id;
        layers.Add(layer);
    }
    EXPECT_EQ(layers.FindLayer(3), layers.GetAt(0));
    EXPECT_EQ(layers.FindLayer(5), layers.GetAt(1));
    EXPECT_EQ(layers.FindLayer(4), nullptr);
    EXPECT_EQ(layers.FindLayer(-1), nullptr);
}

class RefusingLayer : public Layer {
public:
    int Export(CStdioFile & file, int level) override
    {
        file.WriteString(("refused " + std::to_string(level) + "\n").c_str());
        return 0;
    }
};

TEST(LayerArray, WritesItsLayersAtItsOwnLevel)
{
    LayerArray layers;
    EXPECT_EQ(Exported(layers, 1), (Export{1, ""}));
    layers.Add(new Layer(Filled()));
    layers.Add(new Layer);
    EXPECT_EQ(Exported(layers, 1), (Export{1, Below(R"(
      <Layer name="n" layerFunction="f" side="s" polarity="p">
      </Layer>
      <Layer name="" layerFunction="" side="" polarity="POSITIVE">
      </Layer>
)")}));
}

TEST(LayerArray, StopsAtTheFirstThatRefuses)
{
    LayerArray layers;
    layers.Add(new RefusingLayer);
    layers.Add(new Layer);
    EXPECT_EQ(Exported(layers, 4), (Export{0, "refused 4\n"}));
}

}  // namespace
