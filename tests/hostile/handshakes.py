"""What servers do before there is a request: at the acceptance of a connection, and while hands are shaken."""

import ssl

from hostile.answers import WHOLE
from hostile.wire import Gone

# A frame of settings and one of headers, as HTTP/2 has them.
SETTINGS = b"\x00\x00\x00\x04\x00\x00\x00\x00\x00"
HEADERS = b"\x00\x00\x01\x01\x05\x00\x00\x00\x01\x88"


def accept_and_say_nothing(wire):
    wire.stay_silent()


def close_at_once(wire):
    wire.end()


def reset_at_once(wire):
    wire.reset()


def hear_the_greeting_and_say_nothing(wire):
    wire.read_raw()
    wire.stay_silent()


def hear_the_greeting_and_close(wire):
    wire.read_raw()
    wire.end()


def hear_the_greeting_and_reset(wire):
    wire.read_raw()
    wire.reset()


def cut_the_handshake_in_the_middle(wire):
    def half(data):
        wire.send_raw(data[:len(data) // 2])
        wire.end()
        raise Gone

    wire.secure(send=half)


def drip_the_handshake(wire):
    def slowly(data):
        for byte in data:
            wire.pause(5)
            wire.send_raw(bytes([byte]))

    wire.secure(send=slowly)


def answer_without_tls(wire):
    wire.read_raw()
    wire.send_raw(WHOLE)
    wire.end()


def answer_the_greeting_with_zeros(wire):
    wire.read_raw()
    wire.send_raw(bytes(4096))
    wire.end()


def flood_the_greeting_with_zeros(wire):
    wire.read_raw()
    while wire.sent < 32 << 20:
        wire.send_raw(bytes(65536))
    wire.stay_silent()


def close_after_the_handshake(wire):
    wire.secure()
    wire.end()


def reset_after_the_handshake(wire):
    wire.secure()
    wire.reset()


def say_goodbye_after_the_handshake(wire):
    wire.secure()
    wire.end_politely()


def hear_the_request_and_say_nothing(wire):
    wire.secure()
    wire.read_request()
    wire.stay_silent()


def speak_frames_though_asked_for_lines(wire):
    wire.secure()
    wire.read_request()
    wire.send(SETTINGS + HEADERS)
    wire.stay_silent()


def speak_frames_and_close(wire):
    wire.secure()
    wire.read_request()
    wire.send(SETTINGS + HEADERS)
    wire.end_politely()


def old_tls(certificate):
    """Only TLS 1.1, which no client should take any more."""
    context = plain_context(certificate)
    context.minimum_version = ssl.TLSVersion.TLSv1
    context.maximum_version = ssl.TLSVersion.TLSv1_1
    context.set_ciphers("ALL:@SECLEVEL=0")
    return context


def no_common_cipher(certificate):
    """Only a cipher without encryption."""
    context = plain_context(certificate)
    context.maximum_version = ssl.TLSVersion.TLSv1_2
    context.set_ciphers("ECDHE-ECDSA-NULL-SHA:@SECLEVEL=0")
    return context


def usual_context(certificate):
    context = plain_context(certificate)
    context.set_alpn_protocols(["http/1.1"])
    return context


def plain_context(certificate):
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.set_ciphers("DEFAULT:@SECLEVEL=0")
    context.load_cert_chain(certificate, certificate.with_suffix(".key"))
    return context
