#!/usr/bin/python3
"""Runs one scenario: run_scenario.py MODULE NAME. The exit code is 0 when it came to its end."""
import importlib
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

module, name = sys.argv[1:3]
getattr(importlib.import_module(module), "scenario_" + name)()
print(f"{name}: passed")
