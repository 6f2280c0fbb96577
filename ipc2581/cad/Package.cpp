#include "ipc2581/cad/Package.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/cad/PlainOutline.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using Package = CIPC2581_Ecad_CadData_Step_Package;
using PackageArray = CIPC2581_Ecad_CadData_Step_PackageArray;

namespace {

// The blank behind most names and the run of tabs belong to the text.
struct PackageType {
    std::string_view name;
    std::size_t tabs;

    std::string Text() const { return std::string(name).append(tabs, '\t'); }
    bool IsWrittenAs(std::string_view text) const
    {
        return text.size() == name.size() + tabs && text.starts_with(name) &&
               text.find_first_not_of('\t', name.size()) == std::string_view::npos;
    }
};

constexpr PackageType Other = {"OTHER", 11};

// In the order of the codes, which count from 1.
constexpr std::array<PackageType, 48> PackageTypes = {{
    {"AXIAL_LEADED", 9},
    {"BARE_DIE ", 10},
    {"CERAMIC_BGA ", 8},
    {"CERAMIC_DIP ", 9},
    {"CERAMIC_FLATPACK ", 6},
    {"CERAMIC_QUAD_FLATPACK", 4},
    {"CERAMIC_SIP ", 9},
    {"CHIP ", 12},
    {"CHIP_SCALE ", 9},
    {"CHOKE_SWITCH_SM ", 6},
    {"COIL ", 12},
    {"CONNECTOR_SM ", 8},
    {"CONNECTOR_TH ", 8},
    {"EMBEDDED", 10},
    {"FLIPCHIP ", 10},
    {"HERMETIC_HYBRED ", 7},
    {"LEADLESS_CERAMIC_CHIP_CARRIER ", 1},
    {"MCM ", 12},
    {"MELF ", 12},
    {"FINEPITCH_BGA ", 8},
    {"MOLDED ", 11},
    {"NETWORK ", 10},
    {"PGA", 12},
    {"PLASTIC_BGA ", 9},
    {"PLASTIC_CHIP_CARRIER ", 5},
    {"PLASTIC_DIP ", 9},
    {"PLASTIC_SIP ", 9},
    {"POWER_TRANSISTOR ", 6},
    {"RADIAL_LEADED ", 8},
    {"RECTANGULAR_QUAD_FLATPACK ", 2},
    {"RELAY_SM ", 10},
    {"RELAY_TH ", 10},
    {"SOD123 ", 11},
    {"SOIC ", 12},
    {"SOJ ", 12},
    {"SOPIC ", 11},
    {"SOT143 ", 11},
    {"SOT23 ", 11},
    {"SOT52 ", 11},
    {"SOT89", 11},
    {"SQUARE_QUAD_FLATPACK ", 4},
    {"SSOIC ", 11},
    {"SWITCH_TH ", 9},
    {"TANTALUM ", 10},
    {"TO_TYPE ", 10},
    {"TRANSFORMER ", 8},
    {"TRIMPOT_SM ", 9},
    {"TRIMPOT_TH", 9},
}};

std::unique_ptr<CIPC2581_Ecad_CadData_Step_Package_Pin> ReadPin(LineCycle & line, CStdioFile & file)
{
    auto pin = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_Package_Pin>::Pin>(line, file);
    pin->PinAdd(file);
    return pin;
}

}  // namespace

Package::CIPC2581_Ecad_CadData_Step_Package() : CIPC2581_Ecad_CadData_Step_Package(WithoutParts())
{
    Outline = new CIPC2581_Outline();
}

Package::CIPC2581_Ecad_CadData_Step_Package(ObjectBlocks & blocks) : SilkScreen(blocks), AssemblyDrawing(blocks)
{
    Outline = MakeFrom<CIPC2581_Outline>(blocks);
}

Package::CIPC2581_Ecad_CadData_Step_Package(const Package & other) : CIPC2581_Ecad_CadData_Step_Package()
{
    operator=(other);
}

Package & Package::operator=(const Package & other)
{
    TypeCode = other.TypeCode;
    return *this;
}

Package::~CIPC2581_Ecad_CadData_Step_Package()
{
    delete Outline;
}

int Package::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Package name=\"%s\" type=\"%s\">\n", Indent(level + 1), name, type);
    if (!ExportParts(file, level + 1, Outline, SilkScreen, AssemblyDrawing, LandPattern, PinArray)) {
        return 0;
    }
    WriteLine(file, "%s</Package>\n", Indent(level + 1));
    return 1;
}

void Package::Init()
{
    TypeCode = 0;
    CreateOrMakePlain(Outline);
}

void Package::PackageAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Outline")) {
            Outline->Import(file);
        }
        else if (line.Opens("AssemblyDrawing")) {
            // The outline reads itself, up to the next "/Outline" wherever it stands.
            AssemblyDrawing.Outline->Import(file);
        }
        else if (line.Opens("LandPattern")) {
            LandPattern.LandPatternAdd(file);
        }
        else if (line.Opens("SilkScreen")) {
            SilkScreen.SilkScreenAdd(file);
        }
        else if (line.Opens("Pin")) {
            Append(PinArray, ReadPin(line, file));
        }
        else if (line.Holds("/Package")) {
            return;
        }
    }
}

int Package::GetPackageType(CString text)
{
    for (std::size_t i = 0; i < PackageTypes.size(); ++i) {
        if (PackageTypes[i].IsWrittenAs(text)) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

CString Package::GetPackageType(int code)
{
    const bool isKnown = code >= 1 && code <= static_cast<int>(PackageTypes.size());
    const PackageType & row = isKnown ? PackageTypes[static_cast<std::size_t>(code - 1)] : Other;
    return CString(row.Text().c_str());
}

PackageArray::CIPC2581_Ecad_CadData_Step_PackageArray() = default;

PackageArray::~CIPC2581_Ecad_CadData_Step_PackageArray()
{
    DeleteAll();
}

int PackageArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

Package * PackageArray::pGetIPCPackageWithName(CString name) const
{
    return FindFirst(*this, &Package::name, name);
}
