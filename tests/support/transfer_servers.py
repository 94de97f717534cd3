"""Local FTP (plain or explicit TLS) and SMTP servers for the transfer tests.

    transfer_servers.py ftp PORT_FILE HOME USER PASSWORD [CERT_FILE]
    transfer_servers.py smtp PORT_FILE MAIL_DIR [MODE]

Each server listens on 127.0.0.1 and a free port, writes that port to PORT_FILE once it
accepts connections, and serves until it is terminated. The SMTP server writes each message
it receives, as its bytes arrived after the dot was unstuffed, to MAIL_DIR/<n>.eml; MODE
"refuse-rcpt" answers every recipient with 550, "close-after-greeting" hangs up after the
greeting and "silent" accepts the connection and never answers.
"""
import os
import socket
import sys
import time


def announce(port_file, port):
    with open(port_file + ".part", "w") as f:
        f.write(str(port))
    os.replace(port_file + ".part", port_file)


def serve_ftp(port_file, home, user, password, cert=None):
    from pyftpdlib.authorizers import DummyAuthorizer
    from pyftpdlib.servers import FTPServer
    if cert:
        from pyftpdlib.handlers import TLS_FTPHandler as Handler
        Handler.certfile = cert
        Handler.tls_control_required = True
        Handler.tls_data_required = True
    else:
        from pyftpdlib.handlers import FTPHandler as Handler
    authorizer = DummyAuthorizer()
    authorizer.add_user(user, password, home, perm="elradfmwMT")
    Handler.authorizer = authorizer
    Handler.permit_foreign_addresses = True
    server = FTPServer(("127.0.0.1", 0), Handler)
    announce(port_file, server.socket.getsockname()[1])
    server.serve_forever()


def serve_smtp_mode(port_file, mode):
    listener = socket.socket()
    listener.bind(("127.0.0.1", 0))
    listener.listen(5)
    announce(port_file, listener.getsockname()[1])
    while True:
        conn, _ = listener.accept()
        if mode == "close-after-greeting":
            conn.sendall(b"220 localhost ready\r\n")
            conn.close()
        else:
            time.sleep(3600)


def serve_smtp(port_file, mail_dir, mode=""):
    if mode in ("close-after-greeting", "silent"):
        return serve_smtp_mode(port_file, mode)
    from aiosmtpd.controller import Controller
    from aiosmtpd.smtp import SMTP

    class Keeper:
        count = 0

        async def handle_RCPT(self, server, session, envelope, address, options):
            if mode == "refuse-rcpt":
                return "550 No such user here"
            envelope.rcpt_tos.append(address)
            return "250 OK"

        async def handle_DATA(self, server, session, envelope):
            Keeper.count += 1
            path = os.path.join(mail_dir, "%d.eml" % Keeper.count)
            with open(path + ".part", "wb") as f:
                f.write(envelope.original_content)
            os.replace(path + ".part", path)
            return "250 Message accepted"

    probe = socket.socket()
    probe.bind(("127.0.0.1", 0))
    port = probe.getsockname()[1]
    probe.close()
    controller = Controller(Keeper(), hostname="127.0.0.1", port=port,
                            server_kwargs={"decode_data": False})
    controller.start()
    announce(port_file, port)
    try:
        while True:
            time.sleep(3600)
    finally:
        controller.stop()


if __name__ == "__main__":
    kind, args = sys.argv[1], sys.argv[2:]
    if kind == "ftp":
        serve_ftp(*args)
    else:
        serve_smtp(*args)
