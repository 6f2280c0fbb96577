#include "ipc2581/base/PointD.h"

CPointD::CPointD() = default;
CPointD::CPointD(CPointD const & other) = default;
CPointD::CPointD(double const & x, double const & y) : X(x), Y(y) {}
CPointD::~CPointD() = default;
CPointD & CPointD::operator=(CPointD const & other) = default;

void CPointD::Init()
{
    SetData(0.0, 0.0);
}

void CPointD::SetData(double const & x, double const & y)
{
    // Both taken first: they may be the point's own, the other way round.
    const double newY = y;
    X = x;
    Y = newY;
}

int CPointD::operator==(CPointD const & other) const
{
    return X == other.X && Y == other.Y ? 1 : 0;
}

int CPointD::operator!=(CPointD const & other) const
{
    return X != other.X || Y != other.Y ? 1 : 0;
}

void SerializeElement(CArchive & archive, CPointD & point)
{
    ipc2581::detail::SerializeElement(archive, point.X);
    ipc2581::detail::SerializeElement(archive, point.Y);
}

CArrayPointD::CArrayPointD() = default;

CArrayPointD::CArrayPointD(CArrayPointD const & other) : CArray()
{
    Copy(other);
}

CArrayPointD::~CArrayPointD() = default;

CArrayPointD * CArrayPointD::clone() const
{
    return new CArrayPointD(*this);
}

CArrayArrayPointD::CArrayArrayPointD() = default;

CArrayArrayPointD::CArrayArrayPointD(CArrayArrayPointD const & other) : CArrayArrayPointD()
{
    ipc2581::detail::AppendClones(*this, other);
}

CArrayArrayPointD::~CArrayArrayPointD()
{
    DeleteAll();
}

CArrayArrayPointD * CArrayArrayPointD::clone() const
{
    return new CArrayArrayPointD(*this);
}
