# SPDX-License-Identifier: MIT
"""Twenty slides that can be told from each other: each is filled with a colour of its own, and none is grey."""

from itertools import product

COLOURS = [colour for colour in product((40, 130, 220), repeat=3) if len(set(colour)) > 1][:20]


def _hex(colour):
    return "#%02x%02x%02x" % colour


def pdf(path):
    """Pages of 16 by 9 inches, written by hand: a page is one filled rectangle."""
    objects = ["<< /Type /Catalog /Pages 2 0 R >>",
               "<< /Type /Pages /Count %d /Kids [%s] >>" % (
                   len(COLOURS), " ".join("%d 0 R" % (3 + 2 * i) for i in range(len(COLOURS))))]
    for i, colour in enumerate(COLOURS):
        drawing = "%.4f %.4f %.4f rg 0 0 1152 648 re f" % tuple(part / 255 for part in colour)
        objects.append("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 1152 648] /Contents %d 0 R >>" % (4 + 2 * i))
        objects.append("<< /Length %d >>\nstream\n%s\nendstream" % (len(drawing), drawing))
    text, places = "%PDF-1.4\n", []
    for number, content in enumerate(objects, 1):
        places.append(len(text))
        text += "%d 0 obj\n%s\nendobj\n" % (number, content)
    table = len(text)
    text += "xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1)
    text += "".join("%010d 00000 n \n" % place for place in places)
    text += "trailer << /Size %d /Root 1 0 R >>\nstartxref\n%d\n%%%%EOF\n" % (len(objects) + 1, table)
    path.write_text(text)


def fodp(path):
    """A flat OpenDocument presentation."""
    styles = "".join(
        '<style:style style:name="dp%d" style:family="drawing-page"><style:drawing-page-properties '
        'draw:fill="solid" draw:fill-color="%s" presentation:background-visible="true"/></style:style>'
        % (i, _hex(colour)) for i, colour in enumerate(COLOURS))
    pages = "".join('<draw:page draw:name="p%d" draw:style-name="dp%d" draw:master-page-name="M"/>' % (i, i)
                    for i in range(len(COLOURS)))
    names = {"office": "office", "style": "style", "draw": "drawing", "presentation": "presentation"}
    spaces = " ".join('xmlns:%s="urn:oasis:names:tc:opendocument:xmlns:%s:1.0"' % item for item in names.items())
    fo = 'xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"'
    path.write_text(
        '<?xml version="1.0" encoding="UTF-8"?><office:document %s %s office:version="1.2" '
        'office:mimetype="application/vnd.oasis.opendocument.presentation"><office:automatic-styles>'
        '<style:page-layout style:name="L"><style:page-layout-properties fo:page-width="32cm" '
        'fo:page-height="18cm"/></style:page-layout>%s</office:automatic-styles><office:master-styles>'
        '<style:master-page style:name="M" style:page-layout-name="L"/></office:master-styles>'
        '<office:body><office:presentation>%s</office:presentation></office:body></office:document>'
        % (spaces, fo, styles, pages))


def html(path):
    """A page that turns its slides by the page keys, as slides in a browser do."""
    path.write_text(
        '<!doctype html><title>Slides</title><style>html,body{margin:0;height:100%%}</style><script>'
        'const colours=%s;let slide=0;const show=()=>document.body.style.background=colours[slide];'
        'addEventListener("keydown",e=>{const step={PageDown:1,PageUp:-1}[e.key]||0;'
        'slide=Math.max(0,Math.min(colours.length-1,slide+step));show();});'
        'addEventListener("load",show);</script><body></body>' % [_hex(colour) for colour in COLOURS])
