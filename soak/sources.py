"""Sources that are large enough to be interrupted while they are translated."""


def assembler_source(lines, literal):
    body = "".join(f"L{i}\tMOVLW 0x{literal:02X}\r\n" for i in range(lines))
    return body + "\tSLEEP\r\n"


def basic_source(statements, value):
    return "Dim a As Byte\r\n" + f"a = {value}\r\n" * statements
