#include "hosts/ipc2581/sqlite/Schema.h"

namespace ipc2581::host {

const char * Schema()
{
    return R"sql(CREATE TABLE boards (
    id           INTEGER PRIMARY KEY,
    file         TEXT NOT NULL UNIQUE, -- as it was named
    content_hash TEXT NOT NULL,        -- SHA-256 of the file, unpacked
    name         TEXT,
    step         TEXT,                 -- the step that was read
    units        TEXT,                 -- of all lengths; null if the board does not tell
    millimeters  REAL,                 -- of one unit; null if the board does not tell
    thickness    REAL,
    assembly     TEXT,                 -- of the bill of materials
    remarks      INTEGER               -- remarks of sets, which are counted alone; null with --exact
);

CREATE TABLE steps (
    id       INTEGER PRIMARY KEY,
    board_id INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    name     TEXT,
    is_read  INTEGER NOT NULL, -- 0 for a step that was left out
    min_x    REAL,             -- of the profile
    min_y    REAL,
    max_x    REAL,
    max_y    REAL
);

CREATE TABLE layers (
    id       INTEGER PRIMARY KEY,
    board_id INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    layer    TEXT,
    function TEXT,
    side     TEXT,
    polarity TEXT,
    copper   INTEGER NOT NULL
);

CREATE TABLE stackup (
    id                    INTEGER PRIMARY KEY,
    board_id              INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    layer_id              INTEGER REFERENCES layers,
    layer                 TEXT,
    group_name            TEXT,
    material              TEXT,
    thickness             REAL,
    group_thickness       REAL,
    group_tolerance_plus  REAL,
    group_tolerance_minus REAL
);

CREATE TABLE packages (
    id       INTEGER PRIMARY KEY,
    board_id INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    package  TEXT,
    type     TEXT,
    height   REAL,
    pin_one  TEXT
);

CREATE TABLE package_pins (
    id              INTEGER PRIMARY KEY,
    board_id        INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    package_id      INTEGER NOT NULL REFERENCES packages,
    pin             TEXT,
    name            TEXT,
    type            TEXT,
    electrical_type TEXT,
    x               REAL, -- from the origin of the package
    y               REAL,
    rotation        REAL,
    primitive       TEXT
);

CREATE TABLE items ( -- of the bill of materials
    id          INTEGER PRIMARY KEY,
    board_id    INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    quantity    REAL,
    part_number TEXT,
    pins        INTEGER,
    category    TEXT,
    description TEXT,
    package     TEXT,
    value       TEXT
);

CREATE TABLE components (
    id         INTEGER PRIMARY KEY,
    board_id   INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    package_id INTEGER REFERENCES packages,
    layer_id   INTEGER REFERENCES layers,
    designator TEXT,
    package    TEXT,
    part       TEXT,
    layer      TEXT,
    mount      TEXT,
    x          REAL,
    y          REAL,
    rotation   REAL, -- degrees counterclockwise
    mirror     INTEGER NOT NULL,
    height     REAL,
    standoff   REAL,
    fitted     INTEGER, -- null if the bill of materials does not tell
    value      TEXT
);

CREATE TABLE nets (
    id       INTEGER PRIMARY KEY,
    board_id INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    net      TEXT,
    class    TEXT
);

CREATE TABLE net_pins (
    id           INTEGER PRIMARY KEY,
    board_id     INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    net_id       INTEGER NOT NULL REFERENCES nets,
    component_id INTEGER REFERENCES components,
    designator   TEXT,
    pin          TEXT
);

CREATE TABLE pads (
    id           INTEGER PRIMARY KEY,
    board_id     INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    net_id       INTEGER REFERENCES nets,
    layer_id     INTEGER REFERENCES layers,
    component_id INTEGER REFERENCES components,
    net          TEXT,
    layer        TEXT,
    x            REAL,
    y            REAL,
    rotation     REAL,
    primitive    TEXT,
    pin          TEXT,          -- designator and pin: U1.2
    usage        TEXT,
    plate        INTEGER,       -- null for a pad of a pad stack, as the test point
    test_point   INTEGER,
    origin       TEXT NOT NULL  -- set or pad stack
);

CREATE TABLE holes (
    id              INTEGER PRIMARY KEY,
    board_id        INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    net_id          INTEGER REFERENCES nets,
    layer_id        INTEGER REFERENCES layers,
    hole            TEXT,
    diameter        REAL,
    plating         TEXT,
    x               REAL,
    y               REAL,
    net             TEXT,
    from_layer      TEXT,
    to_layer        TEXT,
    tolerance_plus  REAL,
    tolerance_minus REAL,
    layer           TEXT,
    origin          TEXT NOT NULL -- set or pad stack
);

CREATE TABLE tracks ( -- strokes on copper layers
    id        INTEGER PRIMARY KEY,
    board_id  INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    net_id    INTEGER REFERENCES nets,
    layer_id  INTEGER REFERENCES layers,
    net       TEXT,
    layer     TEXT,
    kind      TEXT NOT NULL, -- line or arc
    width     REAL,
    line_end  TEXT,
    from_x    REAL,
    from_y    REAL,
    to_x      REAL,
    to_y      REAL,
    center_x  REAL,          -- null for a line, as what follows but the length
    center_y  REAL,
    clockwise INTEGER,
    length    REAL
);

CREATE TABLE points ( -- of the physical nets
    id        INTEGER PRIMARY KEY,
    board_id  INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    net_id    INTEGER REFERENCES nets, -- the logical net of this name
    layer_id  INTEGER REFERENCES layers,
    net       TEXT,
    x         REAL,
    y         REAL,
    layer     TEXT,
    exposure  TEXT,
    node      TEXT,
    via       INTEGER NOT NULL,
    primitive TEXT,
    test      INTEGER NOT NULL
);

CREATE TABLE designators ( -- of the items
    id           INTEGER PRIMARY KEY,
    board_id     INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    item_id      INTEGER NOT NULL REFERENCES items,
    component_id INTEGER REFERENCES components,
    designator   TEXT,
    fitted       INTEGER NOT NULL
);

CREATE TABLE characteristics ( -- of the items
    id       INTEGER PRIMARY KEY,
    board_id INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    item_id  INTEGER REFERENCES items,
    kind     TEXT, -- Textual, Measured, Ranged or Enumerated
    name     TEXT,
    value    TEXT, -- of a range both ends
    unit     TEXT
);

CREATE TABLE makers_parts ( -- that may be bought for a part number
    id           INTEGER PRIMARY KEY,
    board_id     INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    item_id      INTEGER REFERENCES items,
    part_number  TEXT,
    maker        TEXT,
    part         TEXT,
    availability TEXT -- as the file says it
);

CREATE TABLE specs (
    id       INTEGER PRIMARY KEY,
    board_id INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    spec     TEXT,
    property TEXT,
    value    TEXT
);

CREATE TABLE facts ( -- without a place above; some of them are told in the tables above too
    id         INTEGER PRIMARY KEY,
    board_id   INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    path       TEXT NOT NULL,    -- of the element: Ecad/CadHeader/Spec
    line       INTEGER,
    owner      INTEGER NOT NULL, -- which of several it belongs to, counted from 0
    attributes TEXT NOT NULL     -- an object of JSON; text of an element under an empty key
);

CREATE TABLE notes ( -- of what was not taken as it stands
    id       INTEGER PRIMARY KEY,
    board_id INTEGER NOT NULL REFERENCES boards ON DELETE CASCADE,
    kind     TEXT NOT NULL,
    line     INTEGER,
    text     TEXT NOT NULL
);
)sql";
}

}  // namespace ipc2581::host
