#ifndef IPC2581_PYTHON_BOARD_BOARDSTORE_H
#define IPC2581_PYTHON_BOARD_BOARDSTORE_H

#include <memory>
#include <string>

#include <pybind11/pybind11.h>

#include "hosts/ipc2581/board/Board.h"
#include "python/objects/Store.h"

namespace ipc2581::python {

// A board as Python has it.
class BoardStore final : public Store {
public:
    explicit BoardStore(std::unique_ptr<host::Board> board) : m_board(std::move(board)) {}

    [[nodiscard]] Found Root() const override;
    [[nodiscard]] bool IsBoard() const override { return true; }
    [[nodiscard]] pybind11::object AsPython() override;
    [[nodiscard]] host::Board & Own() const { return *m_board; }

    // An object or a list by its place from the root: "m_Bom.m_arrBomItem".
    [[nodiscard]] pybind11::object At(std::string_view path);
    // The first element with this text in a list at a path. Raises KeyError, which tells what it is.
    [[nodiscard]] pybind11::object Named(std::string_view path, std::string_view key, const char * what,
                                         pybind11::handle name);

private:
    std::unique_ptr<host::Board> m_board;
};

}  // namespace ipc2581::python

#endif
