"""What happens to folders of logs behind the program's back."""

import os
import shutil

MOST_LOGS = 40  # in a folder, so that the memory has a level to find


class Disk:
    """Changes the jumpers' folders at random, and puts them back as they were."""

    def __init__(self, rng, folder):
        self._rng = rng
        self._pristine = f"{folder}-as-made"
        self._folder = folder
        shutil.copytree(folder, self._pristine)
        self._logs = [os.path.join(path, name) for path, _, names in os.walk(self._pristine) for name in names]
        self._away = None

    def jumpers(self):
        return sorted(entry.path for entry in os.scandir(self._pristine) if entry.is_dir())

    def folders(self):
        """Where the program finds them, if they are there."""
        return [jumper.replace(self._pristine, self._folder) for jumper in self.jumpers()]

    def act(self):
        self._rng.choice([self._appear, self._appear, self._vanish, self._grow, self._damage, self._lock, self._swap,
                          self._go_away, self._come_back, self._come_back, self.put_back])()

    def put_back(self):
        """Everything as it was made."""
        self._away = None
        for jumper, here in zip(self.jumpers(), self.folders()):
            shutil.rmtree(here + " elsewhere", ignore_errors=True)
            shutil.rmtree(here, ignore_errors=True)
            shutil.copytree(jumper, here)

    def _present(self):
        return [os.path.join(path, name) for path, _, names in os.walk(self._folder) for name in names
                if os.path.isfile(os.path.join(path, name))]

    def _new_path(self):
        jumper = os.path.basename(self._rng.choice(self.jumpers()))
        return f"{self._folder}/{jumper}/{self._rng.randrange(1000)}.csv"

    def _appear(self):
        if len(self._present()) >= MOST_LOGS:
            return self._vanish()
        path = self._new_path()
        if os.path.isdir(os.path.dirname(path)) and not os.path.exists(path):
            shutil.copyfile(self._rng.choice(self._logs), path)

    def _vanish(self):
        present = self._present()
        if present:
            os.remove(self._rng.choice(sorted(present)))

    def _grow(self):
        """As a logger that still writes: the last rows again, and half of one."""
        present = self._present()
        if present:
            with open(self._rng.choice(sorted(present)), "r+b") as file:
                file.seek(0)
                rows = file.read().splitlines(keepends=True)[-self._rng.randrange(1, 200):]
                file.seek(0, os.SEEK_END)
                file.write(b"".join(rows) + rows[-1][:7] if rows else b"")

    def _damage(self):
        present = self._present()
        if not present:
            return
        with open(self._rng.choice(sorted(present)), "r+b") as file:
            size = file.seek(0, os.SEEK_END)
            if self._rng.random() < 0.3:
                file.truncate(self._rng.randrange(size + 1))
            for _ in range(self._rng.randrange(1, 30)):
                file.seek(self._rng.randrange(size + 1))
                file.write(self._rng.randbytes(self._rng.randrange(1, 40)))

    def _lock(self):
        """Without rights, which only keeps out who is not the machine's administrator."""
        present = self._present()
        if present:
            os.chmod(self._rng.choice(sorted(present)), 0)

    def _swap(self):
        """In a log's place something that is no file: a folder, a pipe that nobody writes to, a link to itself."""
        path = self._new_path()
        if os.path.isdir(os.path.dirname(path)) and not os.path.lexists(path):
            self._rng.choice([os.mkdir, os.mkfifo, lambda link: os.symlink(link, link)])(path)

    def _go_away(self):
        if self._away:
            return
        self._away = self._rng.choice(self.folders())
        os.rename(self._away, self._away + " elsewhere")

    def _come_back(self):
        if self._away:
            os.rename(self._away + " elsewhere", self._away)
            self._away = None
