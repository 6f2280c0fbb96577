#ifndef IPC2581_BASE_POINTD_H
#define IPC2581_BASE_POINTD_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CArray.h"

// A point in the plane, in the document's own units.
class IPC2581_API CPointD {
public:
    double X = 0.0;  // to the right
    double Y = 0.0;  // up

    // 0, 0, as after Init.
    CPointD();
    CPointD(CPointD const & other);
    // A point at x, y.
    CPointD(double const & x, double const & y);
    ~CPointD();
    CPointD & operator=(CPointD const & other);

    void Init();
    // Sets both coordinates.
    void SetData(double const & x, double const & y);
    void SetX(double const & x) { X = x; }
    void SetY(double const & y) { Y = y; }
    double GetX() const { return X; }
    double GetY() const { return Y; }
    // The coordinates themselves, to be changed.
    double & GetX() { return X; }
    double & GetY() { return Y; }

    // Exact comparisons; 0 for false.
    virtual int operator==(CPointD const & other) const;
    virtual int operator!=(CPointD const & other) const;

    // The two coordinates of a serialised list of points.
    friend IPC2581_API void SerializeElement(CArchive & archive, CPointD & point);
};

template <>
struct ipc2581::Fields<CPointD> {
    using Object = CPointD;
    static constexpr std::string_view Name = "CPointD";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"X", &Object::X}, Member{"Y", &Object::Y}};
};

namespace ipc2581 {

// What a point of an object takes from an element of the name, its two coordinates.
template <typename Class>
constexpr auto PointElement(std::string_view name, CPointD Class::*point)
{
    return Element<Class>(name, Number("x=", point, &CPointD::X), Number("y=", point, &CPointD::Y));
}

}  // namespace ipc2581

// A list of points, for hosts.
class IPC2581_API CArrayPointD : public CArray<CPointD, CPointD &> {
public:
    CArrayPointD();
    CArrayPointD(CArrayPointD const & other);
    ~CArrayPointD() override;

    // A new list with the same points, the caller's to delete.
    virtual CArrayPointD * clone() const;
};

// A list of lists of points, for hosts. It owns its lists and copies them deeply.
class IPC2581_API CArrayArrayPointD : public CExPtrArray<CArrayPointD *, CArrayPointD *> {
public:
    CArrayArrayPointD();
    CArrayArrayPointD(CArrayArrayPointD const & other);
    ~CArrayArrayPointD() override;

    // A new list with lists of its own, the caller's to delete.
    virtual CArrayArrayPointD * clone() const;
};

#endif
