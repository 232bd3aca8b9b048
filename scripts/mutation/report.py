"""The table of what was killed and the list of what was not."""

KILLED = ("killed", "timeout")


def print_report(places, results):
    rows = {}
    for place in places:
        result = results.of(place)
        if result is not None:
            row = rows.setdefault(place.kind, {"killed": 0, "timeout": 0, "survived": 0, "not reached": 0})
            row[result["status"]] += 1
    print(f"{'kind':<12}{'mutants':>8}{'killed':>8}{'of them by time':>17}{'survived':>10}{'not reached':>13}"
          f"{'share':>9}")
    total = {"killed": 0, "timeout": 0, "survived": 0, "not reached": 0}
    for kind in sorted(rows):
        print_row(kind, rows[kind])
        for status, count in rows[kind].items():
            total[status] += count
    if rows:
        print_row("all", total)
    for status in ("survived", "not reached"):
        for place in places:
            result = results.of(place)
            if result is not None and result["status"] == status:
                print(f"{status}: {place.name}  {place.line_text}")


def print_row(kind, row):
    count = sum(row.values())
    killed = row["killed"] + row["timeout"]
    print(f"{kind:<12}{count:>8}{killed:>8}{row['timeout']:>17}{row['survived']:>10}{row['not reached']:>13}"
          f"{100.0 * killed / count:>8.1f}%")
