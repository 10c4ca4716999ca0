#!/usr/bin/python3
"""Writes the example exports of the Deltek, Monolith, report, workbook, Timeclock Plus,
Infotronics and AE formats, with their side files, into examples/.

Fixed-column lines are laid out by column number and checked for length before they are
written; the workbooks are made with openpyxl (python3-openpyxl) and turned into .xls by
LibreOffice (soffice, libreoffice-calc-nogui). Names and numbers are made up.

Run from anywhere:  /usr/bin/python3 examples/tools/make_examples.py
"""
import os
import shutil
import subprocess
import tempfile

import openpyxl

HERE = os.path.dirname(os.path.abspath(__file__))
EXAMPLES = os.path.dirname(HERE)
CRLF = "\r\n"


def path(*parts):
    full = os.path.join(EXAMPLES, *parts)
    os.makedirs(os.path.dirname(full), exist_ok=True)
    return full


def write_lines(name, lines, tail=""):
    with open(path(*name.split("/")), "wb") as f:
        f.write((CRLF.join(lines) + CRLF + tail).encode("ascii"))


def layout(width, *fields):
    """A line of `width` blanks with each (column from 1, text) put in place."""
    line = [" "] * width
    for col, text in fields:
        assert col - 1 + len(text) <= width, (col, text)
        line[col - 1:col - 1 + len(text)] = list(text)
    return "".join(line)


def right(text, width):
    assert len(text) <= width, (text, width)
    return text.rjust(width)


def left(text, width):
    assert len(text) <= width, (text, width)
    return text.ljust(width)


# --- workbooks -----------------------------------------------------------------------------

def save_xls(workbook, name):
    """Saves an openpyxl workbook as examples/<name> in the .xls kind, through LibreOffice."""
    target = path(*name.split("/"))
    tmp = tempfile.mkdtemp()
    profile = tempfile.mkdtemp()
    try:
        base = os.path.splitext(os.path.basename(target))[0]
        xlsx = os.path.join(tmp, base + ".xlsx")
        workbook.save(xlsx)
        subprocess.run(["soffice", "-env:UserInstallation=file://" + profile, "--headless",
                        "--convert-to", "xls", "--outdir", tmp, xlsx],
                       check=True, stdout=subprocess.DEVNULL)
        shutil.copyfile(os.path.join(tmp, base + ".xls"), target)
    finally:
        shutil.rmtree(tmp, ignore_errors=True)
        shutil.rmtree(profile, ignore_errors=True)


def sheet_rows(ws, rows):
    for r, row in enumerate(rows, start=1):
        for c, value in enumerate(row, start=1):
            if value is not None:
                ws.cell(row=r, column=c, value=value)


def deltek():
    wb = openpyxl.Workbook()
    ws = wb.active
    ws.title = "Hours"
    # A: name or department, B: regular, C: leave, D: unpaid, E and F: bonus, G: total (not
    # read), H: holiday worked, added to regular.
    sheet_rows(ws, [
        ["ENGINEERING", None, None, None, None, None, None, None],
        ["Hale, Morgan", 40, 0, 0, 0, 0, 42, 2],
        ["Ortiz, Dana", 32, 8, 0, 0, 0, 40, 0],
        ["MANUFACTURING"],
        ["Quinn, Avery", 40, 0, -4, 0, 0, 36, 0],
        [1234, 8, 0, 0, 0, 0, 8, 0],
        ["Reyes, Sam", 36, 0, 0, -1.5, 0, 37.5, 1.5],
        ["Totals:", 148, 8, -4, -1.5, 0, 163.5, 3.5],
    ])
    save_xls(wb, "deltek/deltek.xls")
    write_lines("deltek/Employee File.txt", [
        "Hale, Morgan;1041;FT",
        "Ortiz, Dana;1057;PT",
        "Reyes, Sam;1063;FT",
    ])
    write_lines("deltek/Department File.txt", [
        "ENGINEERING;200",
        "ACCOUNTING;300",
    ])


def hill():
    wb = openpyxl.Workbook()
    ws = wb.active
    ws.title = "Register"
    sheet_rows(ws, [
        ["PAYROLL REGISTER 11/20/2026"],
        ["SSN", "Code", "Last Name", "First Name", "Hours", "Gross", "Reimb", "Adv/Ded"],
        ["900-41-1234", "H201", "LARSEN", "PAT", 40, 612.5, 25, 50],
        ["900-41-5678", "H202", "MORENO", "ALEX", 32, 480, 0, 0],
        ["900-41-9012", "H203", None, None, 20, 300, 0, 0],
        ["900-41-3456", "H204", "PRICE", "JO", 40, 520, 12.4, -35],
        ["*** FINAL"],
    ])
    save_xls(wb, "hill.xls")


def kronos_penn():
    wb = openpyxl.Workbook()
    ws = wb.active
    ws.title = "Hours"
    # A name, B number, C date, D hours, E pay code, F rate, G not read, H division,
    # I branch, J department, K team, L shift; row 7 is blank and ends the reading.
    sheet_rows(ws, [
        ["KEMP, ADA", "5101", "11/16/2026", 40, "Regular", 12.5, None, "North", "Plant 1", "Assembly", "A", "1"],
        ["KEMP, ADA", "5101", "11/16/2026", 2.5, "Overtime", 18.75, None, "North", "Plant 1", "Assembly", "A", "1"],
        ["LOWE, BEN", "5114", "11/17/2026", 32, "Regular", 14, None, "North", "Plant 2", "Shipping", "B", "2"],
        ["LOWE, BEN", "5114", "11/18/2026", 8, "Bereavement", 14, None, "North", "Plant 2", "Shipping", "B", "2"],
        ["MARSH, CY", "5120", "11/19/2026", 8, "Jury Duty", 11, None, "South", "Plant 3", "Office", "C", "1"],
        ["MARSH, CY", "5120", "11/20/2026", 0, "Regular", 11, None, "South", "Plant 3", "Office", "C", "1"],
        [],
        ["NASH, DEV", "5133", "11/20/2026", 40, "Regular", 15, None, "North", "Plant 1", "Assembly", "A", "1"],
    ])
    save_xls(wb, "kronos-penn/kronos-penn.xls")

    mapping = openpyxl.Workbook()
    pay = mapping.active
    pay.title = "Pay Codes"
    sheet_rows(pay, [
        ["Regular", "Regular hours", "REG"],
        ["Overtime", "Overtime hours", "OT"],
        ["Holiday", "Holiday pay", "HOL"],
        ["Bereavement", "Bereavement leave", "BRV"],
        ["Bonus", "Bonus", "BON"],
    ])
    for title, rows in (("Division", [["North", "1"], ["South", "2"]]),
                        ("Branch", [["Plant 1", "10"], ["Plant 2", "20"]]),
                        ("Department", [["Assembly", "100"], ["Shipping", "200"]])):
        sheet_rows(mapping.create_sheet(title), rows)
    save_xls(mapping, "kronos-penn/Kronos Penn Mapping.xls")


# --- fixed records -------------------------------------------------------------------------

def deltek_v83_fixed():
    def record(ppe, emp, name, org, pay_type, project, hours, account, labor):
        line = layout(628, (1, ppe), (8, emp), (16, name), (72, org), (95, pay_type),
                      (96, project), (120, hours), (130, account), (177, labor))
        return line

    records = [
        record("PPE", "Emp ID", "Name", "Org", "P", "Project", "     Hours", "Account",
               "Labor Code"),
        record("111526", "00002051", "BAKER, LEE", "01.02.0100", "R", "PRJ-100",
               right("40.00", 10), "5000", "01.0100.ER"),
        record("111526", "00002051", "BAKER, LEE", "01.02.0100", "O", "PRJ-100",
               right("3.50", 10), "5000", "01.0100.ER"),
        record("111526", "00002064", "CHO, PAT", "01.02.0200", "R", "INDIRECT",
               right("8.00", 10), "5100", "01.0200.SK"),
        record("111526", "00002064", "CHO, PAT", "01.02.0200", "R", "PRJ-200",
               right("32.00", 10), "5000", "01.0200.ER"),
        record("111526", "00002078", "DIAZ, RENE", "01.03.0300", "R", "PRJ-300",
               right("0.00", 10), "5000", "01.0300.ER"),
    ]
    for r in records:
        assert len(r) + 2 == 630
    # the export was cut short: 100 bytes of a sixth employee record, not read
    tail = records[1][:100]
    write_lines("deltek-v8-3-fixed.txt", records, tail)


def ae_v10276():
    def record(emp, div, br, dept, dore, code, hours):
        line = layout(129, (1, left(emp, 6)), (7, "DOE EXPORT RECORD"), (32, div), (33, br),
                      (35, dept), (51, dore), (52, code), (63, right(hours, 8)),
                      (71, "20261120"))
        assert len(line) + 2 == 131
        return line

    records = [
        record("008101", "1", "02", "100", "E", "1", "40.00"),
        record("008101", "1", "02", "100", "E", "2", "2.50"),
        record("008102", "1", "02", "210", "E", "1", "32.00"),
        record("008102", "1", "02", "210", "E", "V", "8.00"),
        record("008103", "2", "05", "300", "E", "H", "8.00"),
        record("008103", "2", "05", "300", "E", "P", "4.00"),
        record("008104", "2", "05", "300", "E", "1", "0.00"),
    ]
    write_lines("ae-v1-0-27-6.txt", records, records[0][:60])


def infotronics2():
    def line(emp, name, rate, key, hours):
        text = layout(65, (1, left(emp, 10)), (12, name), (40, right(rate, 7)),
                      (48, left(key, 10)), (59, right(hours, 7)))
        assert len(text) == 65
        return text

    write_lines("infotronics-2/infotronics-2.1T2", [
        line("7101", "GREER, ANN", "12.50", "REG", "40.00"),
        line("7101", "GREER, ANN", "18.75", "OT", "2.50"),
        line("7102", "HOLT, EVAN", "9.75", "REG", "32.00"),
        line("7102", "HOLT, EVAN", "9.75", "VAC", "8.00"),
        line("7103", "IBARRA, LU", "", "HOLIDAY", "8.00"),
        line("7103", "IBARRA, LU", "11.00", "TRAIN", "4.00"),
        line("7104", "JAMES, ROY", "11.00", "REG", "0.00"),
    ])
    write_lines("infotronics-2/ECodes.txt", [
        "REG,E,REG",
        "OT,E,OT",
        "VAC,E,VAC",
        "HOLIDAY,E,HOL",
        "VAC,E,PTO",
    ])


# --- printed reports -----------------------------------------------------------------------

def datatrak():
    heads = "EMPLOYEE                           REG       ITC       OT1       OT2     PREM1     PREM2     PREM3     PREM4"

    def dept(number):
        return layout(49, (1, "RIVERSIDE MILLS PAYROLL SUMMARY"), (40, "DEPT: " + number[:4]))

    def figures(first, kind, values):
        cols = [(1, first), (11, kind)]
        for i, v in enumerate(values):
            cols.append((29 + 10 * i, right(v, 10)))
        return layout(108, *cols)

    z = "0.00"
    write_lines("datatrak.txt", [
        "RIVERSIDE MILLS INC.             WEEK ENDING 11/20/2026",
        dept("0100"),
        heads,
        figures("3011", "HOURS", ["40.00", z, "2.50", z, z, z, z, z]),
        figures("ABBOTT, KIM", "", ["600.00", z, "56.25", z, z, z, z, z]),
        figures("3027", "HOURS", [z, z, "6.00", z, z, z, z, z]),
        figures("BLAKE, ROD", "", [z, z, "135.00", z, z, z, z, z]),
        "",
        dept("0200"),
        heads,
        figures("3044", "HOURS", ["32.00", z, z, z, z, "8.00", z, z]),
        figures("CARSON, UMA", "", ["448.00", z, z, z, z, "112.00", z, z]),
        figures("3058", "HOURS", ["40.00", z, z, "1.50", z, z, z, z]),
        figures("DUNN, FAY", "", ["520.00", z, z, "39.00", z, z, z, z]),
        figures("TOTALS", "HOURS", ["112.00", z, "8.50", "1.50", z, "8.00", z, z]),
        "END OF REPORT",
    ])


def drake_williams():
    heading = layout(124, (1, "DATE"), (13, "JOB"), (22, "DESCRIPTION"), (69, "POSTED"),
                     (90, "CODE"), (95, " HOURS"), (101, "       RATE"), (112, "       AMOUNT"))
    rule = layout(124, (91, "-" * 34))

    def detail(job, text, code, hours, rate, dollars):
        return layout(124, (1, "11/20/26"), (13, left(job, 8)), (22, text), (69, "11/20/26"),
                      (90, left(code, 4)), (95, right(hours, 6)), (101, right(rate, 11)),
                      (112, right(dollars, 13)))

    write_lines("drake-williams.txt", [
        "HARBOR FREIGHT CO.   CHECK REGISTER DETAIL        PERIOD ENDING 11/20/26",
        "04117       HALVORSEN, ERIK",
        heading,
        detail("10045", "SHOP LABOR", "RG", "40.00", "12.50", "500.00"),
        detail("10045", "SHOP LABOR", "OT", "2.50", "18.75", "46.88"),
        detail("10045", "SAFETY BONUS", "BO", "", "", "100.00"),
        rule,
        "04123       NGUYEN, THAO",
        heading,
        detail("20010", "FIELD SERVICE", "RG", "32.00", "14.00", "448.00"),
        detail("20010", "VACATION", "VS", "8.00", "14.00", "112.00"),
        detail("20010", "PARKING", "PK", "4.00", "14.00", "56.00"),
        detail("20010", "TOOL ALLOWANCE", "BO", "", "", "0.00"),
        rule,
        "04130       OKAFOR, DEE",
        heading,
        detail("10045", "SHOP LABOR", "RG", "40.00", "13.00", "520.00"),
        rule,
        "REPORT TOTALS                                                                          1,782.88",
    ])


def hill_ascii():
    def line(ssn, code, last, first, gross, reimb, adv):
        return layout(92, (2, ssn), (14, left(code, 5)), (21, left(last, 20)), (41, left(first, 9)),
                      (60, right(gross, 9)), (70, right(reimb, 10)), (80, right(adv, 13)))

    heading = layout(92, (2, "SSN"), (14, "CODE"), (21, "LAST NAME"), (41, "FIRST"),
                     (60, "    GROSS"), (70, "     REIMB"), (80, "      ADV/DED"))
    write_lines("hill-ascii.txt", [
        "HILL TRUCKING PAYROLL REGISTER                    11/20/2026",
        heading,
        line("900-41-1234", "H201", "LARSEN", "PAT", "612.50", "25.00", "50.00"),
        line("900-41-5678", "H202", "MORENO", "ALEX", "480.00", "0.00", "0.00"),
        "",
        heading,
        line("900-41-3456", "H204", "PRICE", "JO", "520.00", "12.40", "35.00"),
        line("900-41-7890", "H205", "QUINLAN", "MAX", "0.00", "0.00", "0.00"),
        layout(92, (21, "TOTALS"), (60, right("1612.50", 9)), (70, right("37.40", 10)),
               (80, right("85.00", 13))),
        "*** FINAL ***",
    ])


def monolith():
    def line(code, kind, value, sign, rate_no, divbr, job, ssn, rate):
        return layout(61, (11, code), (13, kind), (15, right(value, 9)), (24, sign),
                      (32, rate_no), (34, divbr), (39, left(job, 4)), (51, ssn)) + rate

    write_lines("monolith/monolith.txt", [
        line("03", "H", "0.00", " ", "1", "01002", "A100", "900-11-2222", "   12.50"),
        line("01", "H", "40.00", " ", "1", "01002", "A100", "900-11-2222", "   12.50"),
        line("02", "H", "2.50", " ", "2", "01002", "A100", "900-11-2222", "   18.75"),
        line("01", "H", "32.00", " ", "1", "01003", "B200", "900-33-4444", "   14.00"),
        line("15", "$", "25.00", " ", "1", "01003", "B200", "900-33-4444", "   14.00"),
        line("01", "H", "4.00", "-", "1", "01003", "B200", "900-33-4444", "   14.00"),
        line("62", "H", "0.00", " ", "2", "01003", "B200", "900-33-4444", "   21.00"),
        line("62", "H", "1.25", " ", "2", "02001", "Z999", "900-55-6666", "   16.50"),
        line("01", "H", "0.00", " ", "1", "02001", "Z999", "900-55-6666", "   11.00"),
    ])
    write_lines("monolith/xRef.txt", ["A100,300", "B200,310"])


def main():
    deltek()
    hill()
    kronos_penn()
    deltek_v83_fixed()
    ae_v10276()
    infotronics2()
    datatrak()
    drake_williams()
    hill_ascii()
    monolith()


if __name__ == "__main__":
    main()
