"""Prints a workbook's first sheet: one line per cell with a value or a look
("B4 s:Código bold size=12 T=thin L=thin/FF0000"), then "width B 14.71" lines."""
import sys

import openpyxl


def value_text(cell):
    v = cell.value
    if isinstance(v, bool):
        return "b:" + ("True" if v else "False")
    if isinstance(v, (int, float)):
        return "n:" + repr(float(v))
    if hasattr(v, "isoformat"):
        return "d:" + v.isoformat()
    return "s:" + str(v)


def edge_text(name, side):
    if side is None or side.style is None:
        return None
    text = name + "=" + side.style
    if side.color is not None and side.color.type == "rgb":
        text += "/" + side.color.rgb[2:]
    return text


def main(path):
    sheet = openpyxl.load_workbook(path).worksheets[0]
    for row in sheet.iter_rows():
        for cell in row:
            parts = []
            if cell.value is not None:
                parts.append(value_text(cell))
            if cell.font.b:
                parts.append("bold")
            if cell.font.sz is not None and float(cell.font.sz) != 11:
                parts.append("size=%g" % float(cell.font.sz))
            if cell.number_format != "General":
                parts.append("fmt=" + cell.number_format)
            b = cell.border
            for name, side in (("T", b.top), ("L", b.left), ("B", b.bottom), ("R", b.right)):
                text = edge_text(name, side)
                if text:
                    parts.append(text)
            if parts:
                print(cell.coordinate + " " + " ".join(parts))
    for letter, dim in sorted(sheet.column_dimensions.items(), key=lambda kv: (len(kv[0]), kv[0])):
        if dim.customWidth:
            print("width %s %.2f" % (letter, dim.width))
    print("sheet " + sheet.title)


if __name__ == "__main__":
    main(sys.argv[1])
