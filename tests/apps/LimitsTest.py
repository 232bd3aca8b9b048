"""Files that claim, nest or repeat beyond all measure: an answer or one line, in time and memory that
follow the size of the file."""
import os
import resource
import subprocess
import time
import unittest

from PipenetProcess import PipenetTest, SETTINGS, clean_environment

MEBI = 1 << 20
# A program built with the sanitizers keeps what was freed, and a shadow of everything.
SANITIZED = os.environ.get("TKVLT_SANITIZE") == "ON"
FIXED_BYTES = (900 if SANITIZED else 60) * MEBI
BYTES_A_BYTE = 60 if SANITIZED else 15
FIXED_SECONDS = 10 if SANITIZED else 2
SECONDS_A_MEBI = 10 if SANITIZED else 1


def tags(*pairs):
    return "".join(f"{code}\n{value}\n" for code, value in pairs)


def drawing(entities, blocks="", tables="", objects=""):
    text = tags((0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "AC1015"), (0, "ENDSEC"))
    for name, body in (("TABLES", tables), ("BLOCKS", blocks), ("ENTITIES", entities),
                       ("OBJECTS", objects)):
        if body or name == "ENTITIES":
            text += tags((0, "SECTION"), (2, name)) + body + tags((0, "ENDSEC"))
    return text + tags((0, "EOF"))


def pipe(handle="30", x="0.0"):
    """A line that is a pipe of a sewer, so that a search looks at it."""
    return tags((0, "LINE"), (5, handle), (8, "0"), (10, x), (20, "0.0"), (11, "9.0"), (21, "0.0"),
                (1001, "\\U+7BA1\\U+9053\\U+7CFB\\U+7EDF"), (1000, "\\U+6C61\\U+6C34"))


def insert(handle, name):
    return tags((0, "INSERT"), (5, handle), (8, "0"), (2, name), (10, "1.0"), (20, "1.0"),
                (1001, "\\U+7BA1\\U+4E95\\U+7CFB\\U+7EDF"), (1000, "\\U+6C61\\U+6C34"))


def block(name, body):
    return tags((0, "BLOCK"), (2, name), (10, "0.0"), (20, "0.0")) + body + tags((0, "ENDBLK"))


class LimitsTest(PipenetTest):
    def run_on(self, text, command=("search", "--start", "30")):
        """Runs a command on a drawing and holds what it took against the size of the file."""
        path = self.path("limits.dxf")
        with open(path, "wb") as file:
            file.write(text if isinstance(text, bytes) else text.encode("utf-8"))
        size = os.path.getsize(path)
        seconds = FIXED_SECONDS + SECONDS_A_MEBI * size / MEBI
        began = time.monotonic()
        process = subprocess.Popen(
            [os.environ["PIPENET"], "--settings", SETTINGS, command[0], path, *command[1:]],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, stdin=subprocess.DEVNULL,
            env=clean_environment(),
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, (300, 300)))
        out, err = process.stdout.read(), process.stderr.read()
        process.stdout.close()
        process.stderr.close()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        took = usage.ru_utime + usage.ru_stime
        self.assertLess(took, seconds, f"took {time.monotonic() - began:.1f} s")
        self.assertLess(usage.ru_maxrss * 1024, FIXED_BYTES + BYTES_A_BYTE * size)
        self.assertIn(process.returncode, (0, 1, 2), err.decode("utf-8", "replace")[-500:])
        return process.returncode, out.decode("utf-8"), err.decode("utf-8")

    def assert_refused(self, outcome, *words):
        status, out, err = outcome
        self.assertEqual((status, out), (2, ""))
        self.assertEqual(err.count("\n"), 1, err)
        for word in words:
            self.assertIn(word, err)

    def assert_answered(self, outcome):
        self.assertIn(outcome[0], (0, 1), outcome[2])

    def assert_kept(self, text):
        """What is beyond a limit but does no harm is read past, and the pipe is there."""
        status, out, err = self.run_on(text, ("info",))
        self.assertEqual(status, 0, err)
        self.assertRegex(out, "污水 +gravity +W +1 ")

    def test_claimed_counts_are_not_believed(self):
        claims = (
            tags((0, "LWPOLYLINE"), (5, "31"), (90, "1000000000"), (10, "0.0"), (20, "0.0")),
            tags((0, "LWPOLYLINE"), (5, "31"), (90, "2147483647")),
            tags((0, "SPLINE"), (5, "31"), (71, "3"), (72, "1000000000"), (73, "1000000000")),
            tags((0, "HATCH"), (5, "31"), (91, "1000000000")),
        )
        for claim in claims:
            with self.subTest(claim[:20]):
                status, out, err = self.run_on(drawing(pipe() + claim), ("info",))
                self.assertEqual(status, 0, err)
                self.assertIn("2 entities", out)
        table = tags((0, "TABLE"), (2, "LAYER"), (70, "2000000000"), (0, "ENDTAB"))
        self.assertEqual(self.run_on(drawing(pipe(), tables=table), ("info",))[0], 0)

    def test_many_rows_and_columns_of_a_reference_are_not_drawn_one_by_one(self):
        array = insert("31", "W").replace("1001\n", tags((70, "30000"), (71, "30000"), (44, "1.0"),
                                                         (45, "1.0")) + "1001\n", 1)
        circle = tags((0, "CIRCLE"), (10, "0.0"), (20, "0.0"), (40, "0.5"))
        self.assert_answered(self.run_on(drawing(pipe() + array, block("W", circle))))

    def test_blocks_nested_a_million_deep(self):
        depth = 1_000_000 if not SANITIZED else 100_000
        blocks = [block("B0", tags((0, "CIRCLE"), (10, "0.0"), (20, "0.0"), (40, "0.5")))]
        blocks += [block(f"B{i}", tags((0, "INSERT"), (2, f"B{i - 1}"), (10, "0.0"), (20, "0.0")))
                   for i in range(1, depth)]
        text = drawing(pipe() + insert("31", f"B{depth - 1}"), "".join(blocks))
        self.assert_answered(self.run_on(text))

    def test_blocks_that_double_at_each_level(self):
        """Forty levels of two references each are a million million circles."""
        twice = lambda name: 2 * tags((0, "INSERT"), (2, name), (10, "1.0"), (20, "0.0"))
        blocks = block("B0", tags((0, "CIRCLE"), (10, "0.0"), (20, "0.0"), (40, "0.5")))
        blocks += "".join(block(f"B{i}", twice(f"B{i - 1}")) for i in range(1, 40))
        self.assert_answered(self.run_on(drawing(pipe() + insert("31", "B39"), blocks)))

    def test_blocks_in_a_circle(self):
        blocks = "".join(block(f"B{i}", tags((0, "INSERT"), (2, f"B{(i + 1) % 5}"), (10, "1.0"), (20, "0.0")))
                         for i in range(5))
        self.assert_answered(self.run_on(drawing(pipe() + insert("31", "B0"), blocks)))
        self.assert_answered(self.run_on(drawing(
            pipe() + insert("31", "S"), block("S", tags((0, "INSERT"), (2, "S"), (10, "1.0"))))))

    def test_lines_of_a_hundred_megabytes(self):
        size = (100 if not SANITIZED else 20) * MEBI
        long_text = pipe() + tags((0, "TEXT"), (5, "31"), (10, "0.0"), (20, "0.0"), (40, "1.0"), (1, "x" * size))
        self.assert_answered(self.run_on(drawing(long_text)))
        no_code = drawing(pipe() + "9" * size + "\nLINE\n")
        self.assert_refused(self.run_on(no_code), "limits.dxf:")
        no_number = drawing(pipe() + tags((0, "LINE"), (5, "31"), (10, "1" * size)))
        self.assert_refused(self.run_on(no_number), "limits.dxf:")

    def test_numbers_out_of_range_name_their_line(self):
        for number in ("nan", "inf", "-INF", "1e999", "0x10", "1,5", "--1", ""):
            with self.subTest(number):
                text = drawing(pipe(x=number))
                line = text.split("\n").index("30") + 5
                self.assertEqual(text.split("\n")[line - 1], number)
                self.assert_refused(self.run_on(text), f"limits.dxf:{line}:")
        self.assert_refused(self.run_on(drawing(tags((0, "LINE"), (62, "99999999999999")))), "limits.dxf:")

    def test_handles_that_stand_twice_and_handles_of_no_sense(self):
        self.assert_refused(self.run_on(drawing(pipe() + pipe())), 'handle "30" is used twice')
        self.assert_refused(self.run_on(drawing(pipe() + pipe("F" * 20))), "needs a handle")
        # Without a handle of its own an entity gets one.
        status, out, err = self.run_on(drawing(pipe() + pipe("0")), ("info",))
        self.assertEqual(status, 0, err)
        self.assertIn("2 entities", out)

    def test_owners_in_a_circle(self):
        dictionaries = "".join(tags((0, "DICTIONARY"), (5, f"{0x50 + i:X}"), (330, f"{0x50 + (i + 1) % 3:X}"),
                                    (3, "N"), (350, f"{0x50 + (i + 1) % 3:X}")) for i in range(3))
        self.assert_answered(self.run_on(drawing(pipe(), objects=dictionaries)))

    def test_extended_data_over_its_limit(self):
        texts = "".join(tags((1000, "x" * 255)) for _ in range(4000))
        text = drawing(pipe().rstrip("\n") + "\n" + texts)
        self.assert_kept(text)
        self.assert_kept(drawing(pipe() + tags((1001, "A")) + tags((1002, "{")) * 200_000))

    def test_a_hundred_thousand_sections_and_groups_that_never_close(self):
        text = tags((0, "SECTION"), (2, "HEADER")) * 100_000
        self.assert_refused(self.run_on(text), "limits.dxf:")
        open_groups = drawing(pipe() + tags((0, "LINE"), (5, "31")) + tags((102, "{A")) * 100_000)
        self.assert_kept(open_groups)


if __name__ == "__main__":
    unittest.main()
