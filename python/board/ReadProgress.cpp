#include "python/board/ReadProgress.h"

namespace ipc2581::python {

namespace py = pybind11;

int ReadProgress::SetPos(int position)
{
    const py::gil_scoped_acquire lock;
    bool isToGoOn = false;
    try {
        isToGoOn = Tell(position);
    }
    catch (const py::error_already_set & error) {
        m_raised = error;
    }
    if (!isToGoOn) {
        throw Stopped();
    }
    return CProgressCtrl::SetPos(position);
}

bool ReadProgress::Tell(int position)
{
    if (PyErr_CheckSignals() != 0) {
        throw py::error_already_set();
    }
    if (m_function.is_none() || position == m_last) {
        return true;
    }
    m_last = position;
    constexpr double whole = 100.0;
    return !m_function(position / whole).is(py::bool_(false));
}

void ReadProgress::RaiseAgain()
{
    if (m_raised.has_value()) {
        throw py::error_already_set(*m_raised);
    }
}

}  // namespace ipc2581::python
