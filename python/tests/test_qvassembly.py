import pytest

import qvassembly as qv


@pytest.fixture
def formats(examples):
    return examples / "AssemblyFormats.xml"


def test_records_go_through_a_file_unchanged(examples, formats, tmp_path):
    copy = tmp_path / "copy.csv"
    parts = list(qv.read(examples / "parts.csv", "parts", formats=formats))
    assert qv.write(copy, "parts", parts, formats=formats) == []
    again = list(qv.read(copy, "parts", formats=formats))
    for part in parts:
        part["EstimateTime"] = 0.0  # is written as hours:minutes:seconds, and read as a number
    assert [part.to_dict() for part in again] == [part.to_dict() for part in parts]


def test_tuples_are_the_fields_of_the_records(examples, formats):
    names = ("PartName", "PartQuantity", "MaterialThickness", "IsMachineAvailable", "Customer")
    records = [tuple(part[name] for name in names) for part in qv.read(examples / "parts.csv", "parts", formats=formats)]
    assert list(qv.read(examples / "parts.csv", "parts", formats=formats).tuples(*names)) == records
    small = [row for batch in qv.read(examples / "parts.csv", "parts", formats=formats).batches(*names, size=7)
             for row in zip(*batch)]
    assert small == records


def test_lists_hold_elements(tmp_path):
    program = qv.Record("part-programs", HoleInfo=[{}, {}])
    field = next(iter(program["HoleInfo"][0]))
    program["HoleInfo"][1][field] = program["HoleInfo"][0][field]
    copy = program.copy()
    program["HoleInfo"] = []
    assert (len(program["HoleInfo"]), len(copy["HoleInfo"])) == (0, 2)


@pytest.mark.parametrize(
    ("values", "exception"),
    [
        ({"PartName": "x" * 256}, qv.FieldError),
        ({"PartName": "a\0b"}, qv.FieldError),
        ({"PartName": 5}, TypeError),
        ({"PartQuantity": 2**31}, qv.FieldError),
        ({"PartQuantity": "5"}, AttributeError),
        ({"Nothing": 5}, KeyError),
    ],
)
def test_a_value_that_does_not_fit_is_refused(values, exception):
    with pytest.raises(exception):
        qv.Record("parts", values)


def test_a_failed_write_leaves_the_old_file(formats, tmp_path):
    file = tmp_path / "list.csv"
    file.write_text("old")
    with pytest.raises(KeyError):
        qv.write(file, "parts", [{"PartName": "A"}, {"Nothing": 1}], formats=formats)
    assert file.read_text() == "old"
    with pytest.raises(qv.AssemblyFileError, match="missing.xml"):
        qv.write(file, "parts", [], formats=tmp_path / "missing.xml")
    assert [entry.name for entry in tmp_path.iterdir()] == ["list.csv"]


def test_what_is_odd_is_told(formats, tmp_path):
    file = tmp_path / "list.csv"
    qv.write(file, "parts", [{"PartName": "A", "PartQuantity": 1}], formats=formats, format="orders")
    file.write_text(file.read_text().replace('"1"', '"many"', 1))
    with qv.read(file, "parts", formats=formats, format="orders") as parts:
        assert [part["PartQuantity"] for part in parts] == [0]
        assert "not-a-number" in [diagnostic.code for diagnostic in parts.diagnostics]


def test_numbers_can_have_a_decimal_comma(formats, tmp_path):
    manager = qv.Manager(formats, "orders")
    manager.decimal_comma(read=True, write=True)
    file = tmp_path / "list.csv"
    qv.write(file, "parts", [{"PartName": "A", "MaterialThickness": 1.5}], formats=manager)
    assert '"1,500000"' in file.read_text()
    assert [part["MaterialThickness"] for part in qv.read(file, "parts", formats=manager)] == [1.5]
    assert [part["MaterialThickness"] for part in qv.read(file, "parts", formats=formats, format="orders")] == [1.0]


def test_work_can_be_cancelled(examples, formats):
    manager = qv.Manager(formats, "orders")
    manager.on_progress(lambda done, total: False)
    with pytest.raises(qv.Cancelled):
        list(manager.read(examples / "parts.csv", "parts"))


def test_frames_come_and_go(examples, formats, tmp_path):
    pytest.importorskip("pandas")
    frame = qv.read(examples / "parts.csv", "parts", formats=formats).to_pandas("PartName", "PartQuantity")
    qv.write(tmp_path / "list.csv", "parts", qv.from_pandas(frame, "parts"), formats=formats, format="orders")
    again = qv.read(tmp_path / "list.csv", "parts", formats=formats, format="orders").to_pandas("PartName", "PartQuantity")
    assert again.equals(frame)
