"""Starts the web servers of the examples on loopback ports of their own."""
import os
import shutil
import signal
import socket
import subprocess
import time

from site_folder import fill

LIGHTTPD = """
server.bind = "127.0.0.1"
server.port = {port}
server.document-root = "{folder}/documents"
server.errorlog = "{folder}/error.log"
server.modules = ()
include "{shipped}"
"""

NGINX = """
daemon off;
pid {folder}/{recipe}nginx.pid;
error_log {folder}/error.log;
events {{ worker_connections 1024; }}
http {{
  access_log off;
  client_body_temp_path {folder}/nginx_body;
  fastcgi_temp_path {folder}/nginx_fastcgi;
  proxy_temp_path {folder}/nginx_proxy;
  scgi_temp_path {folder}/nginx_scgi;
  uwsgi_temp_path {folder}/nginx_uwsgi;
  include {shipped};
}}
"""

APACHE = """
ServerName localhost
ServerRoot {folder}
DefaultRuntimeDir {folder}
PidFile {folder}/{recipe}apache.pid
ScriptSock {folder}/{recipe}cgid.sock
ErrorLog {folder}/error.log
DocumentRoot {folder}/documents
Listen 127.0.0.1:{port}
Include {shipped}
"""
APACHE_MODULES = ["mpm_event", "alias", "authz_core", "cgid", "dir", "headers"]


def tool(name):
    path = shutil.which(name, path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin")
    if path is None:
        raise FileNotFoundError(f"{name} is missing: see scripts/setup")
    return path


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def write_configuration(site, name, main, settings, port):
    """The shipped file with our settings, and a main file around it: returns the main one."""
    shipped = site.folder / f"shipped_{site.recipe}{name}.conf"
    text = (site.source / f"examples/web/{site.recipe}{name}.conf").read_text()
    shipped.write_text(fill(text, {**site.places, **settings}))
    path = site.folder / f"{site.recipe}{name}.conf"
    path.write_text(main.format(folder=site.folder, port=port, shipped=shipped,
                                recipe=site.recipe))
    return path


def lighttpd(site, port):
    conf = write_configuration(site, "lighttpd", LIGHTTPD, {}, port)
    return [[tool("lighttpd"), "-D", "-f", conf]]


def nginx(site, port):
    socket_path = f"{site.folder}/fcgiwrap.sock"
    settings, wrapper = {"listen 80": f"listen 127.0.0.1:{port}"}, []
    if not site.recipe:
        settings["/run/fcgiwrap.socket"] = socket_path
        wrapper = [[tool("fcgiwrap"), "-c", "8", "-s", f"unix:{socket_path}"]]
        if os.path.exists(socket_path):
            os.unlink(socket_path)
    conf = write_configuration(site, "nginx", NGINX, settings, port)
    return [*wrapper, [tool("nginx"), "-c", conf, "-e", f"{site.folder}/error.log"]]


def apache(site, port):
    modules = "".join(f"LoadModule {name}_module /usr/lib/apache2/modules/mod_{name}.so\n"
                      for name in APACHE_MODULES)
    settings = {"*:80": f"127.0.0.1:{port}"}
    if not site.recipe:
        settings['"/usr/lib/cgi-bin"'] = f'"{site.folder}"'
    conf = write_configuration(site, "apache", modules + APACHE, settings, port)
    return [[tool("apache2"), "-DFOREGROUND", "-f", conf]]


COMMANDS = {"lighttpd": lighttpd, "nginx": nginx, "apache": apache}
PROCESS_NAMES = {"lighttpd", "nginx", "fcgiwrap", "apache2"}


class Server:
    def __init__(self, site, name):
        (site.folder / "documents").mkdir(exist_ok=True)
        self.site = site
        for _ in range(5):  # another process can take the port before the server does
            self.port = free_port()
            self.log = open(site.folder / "output.log", "wb")
            self.processes = [self.start(command) for command in COMMANDS[name](site, self.port)]
            if self.answers():
                return
            self.stop()
        raise AssertionError(f"{name} does not start:\n{self.messages()}")

    def start(self, command):
        ended_with_us = [tool("setpriv"), "--pdeathsig", "TERM"]
        return subprocess.Popen(ended_with_us + command, cwd=self.site.folder,
                                stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log,
                                start_new_session=True, env={"PATH": "/usr/bin:/bin"},
                                **self.site.ownership)

    def answers(self):
        for _ in range(200):
            if any(process.poll() is not None for process in self.processes):
                return False
            with socket.socket() as probe:
                if probe.connect_ex(("127.0.0.1", self.port)) == 0:
                    return all(process.poll() is None for process in self.processes)
            time.sleep(0.05)
        return False

    def messages(self):
        return "".join(path.read_text(errors="replace")
                       for path in sorted(self.site.folder.glob("*.log")))

    def stop(self):
        for process in self.processes:
            process.terminate()
        for process in self.processes:
            process.wait(timeout=20)
            kill_group(process.pid)  # fcgiwrap leaves its children behind
        self.log.close()


def kill_group(leader):
    try:
        os.killpg(leader, signal.SIGKILL)
        while True:  # its orphans are ours to bury
            os.waitpid(-leader, 0)
    except (ProcessLookupError, ChildProcessError):
        pass
