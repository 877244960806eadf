#!/usr/bin/env python3
"""The pages of a collection as one, for a comparison: a table per class, the records by time. With Jinja2 where
that is installed, else with the templates of the standard library. Usage: report.py INPUT OUTPUT"""
import collections
import html
import sys
import xml.etree.ElementTree as ElementTree

try:
    import jinja2
except ImportError:
    jinja2 = None

TEMPLATE = """<html><body>{% for name, rows in classes.items() %}<h2>{{ name }}</h2><table>
<tr>{% for label in rows[0] %}<th>{{ label }}</th>{% endfor %}</tr>
{% for row in rows %}<tr>{% for value in row.values() %}<td>{{ value }}</td>{% endfor %}</tr>
{% endfor %}</table>{% endfor %}</body></html>
"""

classes = collections.defaultdict(list)
for _, element in ElementTree.iterparse(sys.argv[1]):
    if element.tag == "INSTANCE":
        classes[element.get("CLASSNAME")].append(
            {each.get("NAME"): each.findtext("VALUE", "") for each in element.iter("PROPERTY")})
        element.clear()
for rows in classes.values():
    rows.sort(key=lambda row: row.get("MessageTimestamp", ""))

with open(sys.argv[2], "w", encoding="utf-8") as out:
    if jinja2:
        out.writelines(jinja2.Template(TEMPLATE, autoescape=True).generate(classes=classes))
    else:
        out.write("<html><body>")
        for name, rows in classes.items():
            out.write("<h2>%s</h2><table>\n<tr>" % html.escape(name))
            out.write("".join("<th>%s</th>" % html.escape(label) for label in rows[0]) + "</tr>\n")
            for row in rows:
                out.write("<tr>" + "".join("<td>%s</td>" % html.escape(value) for value in row.values()) + "</tr>\n")
            out.write("</table>")
        out.write("</body></html>\n")
