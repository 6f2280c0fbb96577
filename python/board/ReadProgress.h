#ifndef IPC2581_PYTHON_BOARD_READPROGRESS_H
#define IPC2581_PYTHON_BOARD_READPROGRESS_H

#include <optional>

#include <ipc2581/ipc2581.h>
#include <pybind11/pybind11.h>

namespace ipc2581::python {

// Tells a function of Python how far a read or a write is, and ends it where that says False or raises, or where a
// signal such as that of Ctrl-C has come. It is called without the global lock.
class ReadProgress final : public CProgressCtrl {
public:
    // What ends the read or the write.
    struct Stopped {};

    // None tells nobody.
    explicit ReadProgress(pybind11::object function) : m_function(std::move(function)) {}

    int SetPos(int position) override;
    // Raises what the function has raised, if it has. With the global lock.
    void RaiseAgain();

private:
    bool Tell(int position);

    pybind11::object m_function;
    std::optional<pybind11::error_already_set> m_raised;
    int m_last = -1;
};

}  // namespace ipc2581::python

#endif
