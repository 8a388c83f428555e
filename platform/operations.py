#!/usr/bin/env python3
"""Reads the platform's headers and writes something for each of the operations that they declare.

usage: operations.py [--list] FORMAT HEADER...

Without --list the output is C++: the headers are included, and what FORMAT makes of an operation stands in the
operation's namespace. With --list it is a line for each operation and nothing else. FORMAT may hold
  {name} {owner}     set; empty, or `Service::` for a static member function
  {qualified}        talvern::nodeName::set
  {short}            nodeName::set
  {result}           std::int32_t, as in `auto {owner}{name}({parameters}) -> {result}`
  {parameters}       const std::string& name
  {arguments}        name
  {forwarded}        std::forward<decltype(name)>(name)
  {header}           platform/nodeName.h
and \\n for a new line. A function with `...` can't be forwarded and is left out. A declaration that is not understood
ends the program: no operation is passed over.
"""

import re
import sys

SCOPE = re.compile(r"(namespace|class|struct|enum(?: class)?)\s+([\w:]+)")
FUNCTION = re.compile(r"(?P<result>.*[\s&*>])(?P<name>\w+)\s*\((?P<parameters>.*)\)", re.DOTALL)


def statements(text):
    """The declarations of a header: (enclosing scopes, text), where a scope is a kind and a name."""
    text = re.sub(r"//[^\n]*|/\*.*?\*/|^\s*#[^\n]*|\[\[.*?\]\]", "", text, flags=re.DOTALL | re.MULTILINE)
    scopes, current, depth = [], "", 0
    for character in text:
        depth += {"(": 1, ")": -1}.get(character, 0)
        if depth > 0 or character not in "{};":
            current += character
            continue
        statement = re.sub(r"^\s*(public|protected|private)\s*:", "", " ".join(current.split())).strip()
        if character == "{":
            scope = SCOPE.match(statement)
            scopes.append(scope.groups() if scope else ("body", statement))
        if character != "{" and statement and not any(kind in ("body", "enum", "enum class") for kind, _ in scopes):
            yield list(scopes), statement
        if character == "}":
            kind, name = scopes.pop()
            if kind == "body":
                current = ""
                continue
        current = ""


def operations(header, text):
    for scopes, statement in statements(text):
        namespace = "::".join(name for kind, name in scopes if kind == "namespace")
        classes = [name for kind, name in scopes if kind in ("class", "struct")]
        is_static = statement.startswith("static ")
        if (classes and not is_static) or re.match(r"(static_assert|extern|using|class|struct)\b", statement):
            continue
        function = FUNCTION.fullmatch(statement.removeprefix("static "))
        if not function:
            sys.exit(f"{header}: not understood: {statement}")
        parameters = re.findall(r"(?:[^,<]|<[^<>]*(?:<[^<>]*>)?[^<>]*>)+", function["parameters"])
        if parameters and parameters[-1].strip() == "...":
            continue
        names = [re.search(r"(\w+)$", parameter.strip())[1] for parameter in parameters]
        owner = "".join(f"{name}::" for name in classes)
        qualified = f"{namespace}::{owner}{function['name']}"
        yield namespace, {
            "name": function["name"],
            "owner": owner,
            "qualified": qualified,
            "short": qualified.removeprefix("talvern::"),
            "result": function["result"].strip(),
            "parameters": ", ".join(parameter.strip() for parameter in parameters),
            "arguments": ", ".join(names),
            "forwarded": ", ".join(f"std::forward<decltype({name})>({name})" for name in names),
            "header": header,
        }


def main(arguments):
    is_list = arguments[:1] == ["--list"]
    line, *headers = arguments[1:] if is_list else arguments
    line = line.replace("\\n", "\n")
    found = []
    for path in sorted(headers):
        with open(path, encoding="utf-8") as file:
            found += operations("/".join(path.split("/")[-2:]), file.read())
    if not is_list:
        for header in sorted({operation["header"] for _, operation in found}):
            print(f'#include "{header}"')
    for namespace, operation in found:
        text = line.format_map(operation)
        print(text if is_list else f"\nnamespace {namespace} {{\n{text}\n}}")


main(sys.argv[1:])
