"""Reads the PNG files that browsers write: eight bits a channel, not interlaced."""

import collections
import struct
import zlib


def colours_of(png):
    """How many pixels have each colour, as a Counter of (red, green, blue)."""
    width, channels, data = _unpacked(png)
    stride = width * channels
    counts = collections.Counter()
    before = bytearray(stride)
    for begin in range(0, len(data), stride + 1):
        row = _unfiltered(data[begin], bytearray(data[begin + 1:begin + 1 + stride]), before,
                          channels)
        counts.update(zip(row[0::channels], row[1::channels], row[2::channels]))
        before = row
    return counts


def _unpacked(png):
    at, packed = 8, b''
    while at < len(png):
        length, kind = struct.unpack('>I4s', png[at:at + 8])
        body = png[at + 8:at + 8 + length]
        if kind == b'IHDR':
            width, _, depth, colour, _, _, interlaced = struct.unpack('>IIBBBBB', body)
            if depth != 8 or interlaced or colour not in (2, 6):
                raise ValueError('a PNG file of another kind')
        elif kind == b'IDAT':
            packed += body
        at += 12 + length
    return width, 3 if colour == 2 else 4, zlib.decompress(packed)


def _unfiltered(kind, row, before, step):
    for i in range(len(row) if kind else 0):
        left = row[i - step] if i >= step else 0
        above = before[i]
        if kind == 1:
            guess = left
        elif kind == 2:
            guess = above
        elif kind == 3:
            guess = (left + above) // 2
        else:
            guess = _nearest(left, above, before[i - step] if i >= step else 0)
        row[i] = (row[i] + guess) & 255
    return row


def _nearest(left, above, corner):
    wanted = left + above - corner
    return min((left, above, corner), key=lambda value: abs(wanted - value))
